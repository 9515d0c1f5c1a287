#include "forms/ZV_PickList.h"

#include <utility>

#include <wx/menu.h>
#include <wx/weakref.h>

#include "lang/TextNumbers.h"
#include "ui/WxText.h"

namespace zek {
namespace {

using Choose = std::function<void(const std::string& typed)>;

// The toolkit treats text after a tab as a shortcut key, so replace tabs by blanks.
wxString Label(const PickListItem& item) {
  wxString label = ToWx(item.Caption());
  label.Replace("&", "&&");
  label.Replace("\t", "    ");
  return label;
}

void ShowPickList(wxTextCtrl& box, const PickList& list, const Choose& choose,
                  const wxPoint& place) {
  // A message about the previous box may have moved the focus.
  if (!box.HasFocus()) return;
  wxMenu Menu_Popup;
  const std::string text = FromWx(box.GetValue());
  constexpr int first = wxID_HIGHEST + 1;
  for (std::size_t i = 0; i < list.items.size(); ++i) {
    const PickListItem& item = list.items[i];
    Menu_Popup.AppendCheckItem(first + static_cast<int>(i), Label(item))->Check(item.IsIn(text));
  }
  const wxWeakRef<wxTextCtrl> alive(&box);
  const int chosen = box.GetPopupMenuSelectionFromUser(Menu_Popup, place);
  if (!alive || chosen == wxID_NONE) return;
  choose(list.items.at(static_cast<std::size_t>(chosen - first)).value);
  if (alive) box.SelectAll();
}

bool IsPickListKey(const wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  if (event.GetModifiers() == wxMOD_ALT) return key == WXK_DOWN || key == WXK_NUMPAD_DOWN;
  if (event.GetModifiers() == wxMOD_SHIFT) return key == WXK_F10;
  return event.GetModifiers() == wxMOD_NONE && (key == WXK_WINDOWS_MENU || key == WXK_MENU);
}

}  // namespace

void OfferPickList(wxTextCtrl& box, const PickList& list, const LanguageTexts& texts,
                   Choose choose) {
  if (list.items.empty() || !box.IsEditable()) return;
  box.SetToolTip(ToWx(texts.Text(text::kPickListHint)));
  const auto show = [&box, &list, choose = std::move(choose)](const wxPoint& place) {
    ShowPickList(box, list, choose, place);
  };
  // Deferred until the click is handled: it moves the text cursor and still captures the mouse.
  box.Bind(wxEVT_LEFT_UP, [&box, show](wxMouseEvent& event) {
    box.CallAfter([show, place = event.GetPosition()] { show(place); });
    event.Skip();
  });
  box.Bind(wxEVT_KEY_DOWN, [&box, show](wxKeyEvent& event) {
    if (IsPickListKey(event)) {
      show({0, box.GetSize().y});
    } else {
      event.Skip();
    }
  });
  // Suppress the box's own menu on the menu key; the right mouse button still opens it.
  box.Bind(wxEVT_CONTEXT_MENU,
           [](wxContextMenuEvent& event) { event.Skip(event.GetPosition() != wxDefaultPosition); });
}

}  // namespace zek
