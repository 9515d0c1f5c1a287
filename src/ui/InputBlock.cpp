#include "ui/InputBlock.h"

#include <algorithm>
#include <array>
#include <utility>

#include <wx/event.h>
#include <wx/toplevel.h>

namespace zek {
namespace {

bool IsKey(const wxEvent& event) { return dynamic_cast<const wxKeyEvent*>(&event) != nullptr; }

// A key for a message box or file dialog of the system itself. Windows offers it to one of our
// windows first; elsewhere it does not reach us.
bool IsForSystemDialog([[maybe_unused]] const wxEvent& event) {
#ifdef __WXMSW__
  return IsKey(event) && wxGetActiveWindow() == nullptr;
#else
  return false;
#endif
}

bool IsInput(wxEventType type) {
  const std::array input{
      static_cast<wxEventType>(wxEVT_KEY_DOWN),      static_cast<wxEventType>(wxEVT_KEY_UP),
      static_cast<wxEventType>(wxEVT_CHAR),          static_cast<wxEventType>(wxEVT_CHAR_HOOK),
      static_cast<wxEventType>(wxEVT_LEFT_DOWN),     static_cast<wxEventType>(wxEVT_LEFT_UP),
      static_cast<wxEventType>(wxEVT_LEFT_DCLICK),   static_cast<wxEventType>(wxEVT_RIGHT_DOWN),
      static_cast<wxEventType>(wxEVT_RIGHT_UP),      static_cast<wxEventType>(wxEVT_RIGHT_DCLICK),
      static_cast<wxEventType>(wxEVT_MIDDLE_DOWN),   static_cast<wxEventType>(wxEVT_MIDDLE_UP),
      static_cast<wxEventType>(wxEVT_MIDDLE_DCLICK), static_cast<wxEventType>(wxEVT_MOUSEWHEEL),
      static_cast<wxEventType>(wxEVT_CONTEXT_MENU),  static_cast<wxEventType>(wxEVT_BUTTON),
      static_cast<wxEventType>(wxEVT_MENU)};
  return std::find(input.begin(), input.end(), type) != input.end();
}

bool IsEscape(const wxEvent& event) {
  if (event.GetEventType() != wxEVT_CHAR_HOOK && event.GetEventType() != wxEVT_KEY_DOWN) {
    return false;
  }
  return static_cast<const wxKeyEvent&>(event).GetKeyCode() == WXK_ESCAPE;
}

}  // namespace

InputBlock::InputBlock(std::function<void()> onEscape, const wxWindow* free)
    : onEscape_(std::move(onEscape)), free_(free) {
  for (wxWindow* const form : wxTopLevelWindows) {
    if ((form->GetExtraStyle() & wxWS_EX_TRANSIENT) == 0) blocked_.emplace_back(form);
  }
  wxEvtHandler::AddFilter(this);
}

InputBlock::~InputBlock() { wxEvtHandler::RemoveFilter(this); }

int InputBlock::FilterEvent(wxEvent& event) {
  const wxEventType type = event.GetEventType();
  const bool close = type == wxEVT_CLOSE_WINDOW;
  if ((!close && !IsInput(type)) || !IsForBlocked(event)) return Event_Skip;
  if (close) {
    auto& request = static_cast<wxCloseEvent&>(event);
    if (!request.CanVeto()) return Event_Skip;
    request.Veto();
    closeRequested_ = true;
    onEscape_();
  }
  if (IsEscape(event)) {
    onEscape_();
    return Event_Processed;  // also on the free button: the form would take it as a wish to close
  }
  // The key that started the work may still be held down; it must not press the free button.
  const bool held = IsKey(event) && !keyReleased_;
  if (type == wxEVT_KEY_UP) keyReleased_ = true;
  if (free_ != nullptr && event.GetEventObject() == free_ && !held) return Event_Skip;
  return Event_Processed;
}

// Also true for a menu's event, which belongs to no window.
bool InputBlock::IsForBlocked(const wxEvent& event) const {
  if (IsForSystemDialog(event)) return false;
  auto* const window = dynamic_cast<wxWindow*>(event.GetEventObject());
  const wxWindow* const form = wxGetTopLevelParent(window);
  return form == nullptr || std::any_of(blocked_.begin(), blocked_.end(),
                                        [form](const auto& each) { return each.get() == form; });
}

}  // namespace zek
