#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <wx/button.h>

#include "forms/EntryGrid.h"
#include "lang/Messages.h"

namespace zek {

/// Copying and pasting in an editor of boxes: Ctrl+C and Ctrl+V for several boxes at once, and a
/// button with a menu. Text for one box, and the text of one, are left to the box itself.
class BoxClipboard {
 public:
  struct Parts {
    EntryGrid& grid;
    Messages toUser;
    bool viewOnly;                                               // nothing can be pasted
    std::function<std::string(const EntryGrid::Block&)> textOf;  // cells to be copied
    std::function<void(const std::string& text)> paste;          // text of more than one cell
    std::function<void()> focus;                                 // back to the boxes
    std::function<void(const std::string& said)> say;
  };
  /// An entry of the menu.
  struct Item {
    std::int32_t caption;
    bool changes;  // not for viewing
    std::function<void()> act;
  };

  explicit BoxClipboard(Parts parts) : parts_(std::move(parts)) {}

  /// Ctrl+C, Ctrl+V; false leaves the key to the box.
  bool Copy();
  bool Paste();

  /// Opens the menu at the button: `first`, then copying the boxes and pasting.
  void ShowMenu(wxButton& button, const std::vector<Item>& first);
  /// Puts a text into the clipboard and says so.
  void Put(const std::string& text);

 private:
  void PasteAny();
  void Tell(std::int32_t problem);

  Parts parts_;
};

}  // namespace zek
