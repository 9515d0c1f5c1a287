#include "ui/InputBlock.h"

#include <algorithm>
#include <array>
#include <utility>

#include <wx/event.h>
#include <wx/toplevel.h>

namespace zek {
namespace {

std::set<const wxDialog*> ModalDialogs() {
  std::set<const wxDialog*> dialogs;
  for (const wxWindow* const window : wxTopLevelWindows) {
    const auto* const dialog = dynamic_cast<const wxDialog*>(window);
    if (dialog != nullptr && dialog->IsModal()) dialogs.insert(dialog);
  }
  return dialogs;
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
    : onEscape_(std::move(onEscape)), free_(free), dialogsBefore_(ModalDialogs()) {
  wxEvtHandler::AddFilter(this);
}

InputBlock::~InputBlock() { wxEvtHandler::RemoveFilter(this); }

int InputBlock::FilterEvent(wxEvent& event) {
  const wxEventType type = event.GetEventType();
  const bool close = type == wxEVT_CLOSE_WINDOW;
  if ((!close && !IsInput(type)) || IsSuspended()) return Event_Skip;
  if (close) {
    auto& request = static_cast<wxCloseEvent&>(event);
    if (!request.CanVeto()) return Event_Skip;
    request.Veto();
    closeRequested_ = true;
    onEscape_();
  }
  if (IsEscape(event)) onEscape_();
  // The key that started the work may still be held down; it must not press the free button.
  const bool key = dynamic_cast<const wxKeyEvent*>(&event) != nullptr;
  const bool held = key && !keyReleased_;
  if (type == wxEVT_KEY_UP) keyReleased_ = true;
  if (free_ != nullptr && event.GetEventObject() == free_ && !held) return Event_Skip;
  return Event_Processed;
}

// The system's own message boxes send no events of their own, so check the modal dialogs instead.
bool InputBlock::IsSuspended() const {
  const std::set<const wxDialog*> now = ModalDialogs();
  return std::any_of(now.begin(), now.end(),
                     [this](const wxDialog* dialog) { return dialogsBefore_.count(dialog) == 0; });
}

}  // namespace zek
