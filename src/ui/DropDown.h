#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/eventfilter.h>
#include <wx/popupwin.h>
#include <wx/textctrl.h>

#include "lang/LanguageTexts.h"

namespace zek {

/// Something to choose below a text box, which keeps the focus. A click elsewhere closes it; so
/// does the box when it loses the focus.
class DropDown : public wxPopupWindow, private wxEventFilter {
 public:
  /// `choose` receives the chosen text, windows-1252.
  DropDown(wxTextCtrl& box, std::function<void(const std::string& typed)> choose);
  DropDown(const DropDown&) = delete;
  DropDown& operator=(const DropDown&) = delete;
  ~DropDown() override;

  /// Shows it below the box, or above it where there is more room.
  void Open();
  void Close();

  /// Handles a key of the box; returns false if the key closes the list and belongs to the box.
  bool TakeKey(const wxKeyEvent& event);

 protected:
  void Frame(wxWindow* content);
  /// Moves the choice; false for other keys.
  virtual bool Move(int key) = 0;
  virtual std::optional<std::string> Chosen() const = 0;
  /// Closes and hands over what is chosen, if anything.
  void Choose();

 private:
  int FilterEvent(wxEvent& event) override;

  wxTextCtrl& box_;
  std::function<void(const std::string& typed)> choose_;
};

/// A line of a list. `typed` is what it stands for.
struct DropItem {
  wxString text;
  wxString value;  // at the right edge
  std::string typed;
  bool ticked = false;
};

/// Creates a list. Without a ticked item nothing is marked; `nearest` is then scrolled into view.
DropDown* NewDropList(wxTextCtrl& box, std::vector<DropItem> items, std::size_t nearest,
                      std::function<void(const std::string& typed)> choose);

/// Creates a calendar that begins at `date`, "2026-12-24", or else today. `texts` must outlive it.
DropDown* NewDropCalendar(wxTextCtrl& box, const std::string& date, const LanguageTexts& texts,
                          std::function<void(const std::string& typed)> choose);

}  // namespace zek
