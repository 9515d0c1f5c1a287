#include "forms/BoxClipboard.h"

#include <wx/menu.h>
#include <wx/weakref.h>

#include "lang/TextNumbers.h"
#include "paste/CellBlock.h"
#include "text/Lines.h"
#include "ui/Clipboard.h"
#include "ui/Mnemonics.h"
#include "ui/WxText.h"

namespace zek {
namespace {

using Problem = ClipboardText::Problem;

std::int32_t TextOf(Problem problem) {
  if (problem == Problem::TooLong) return text::kPasteTooLong;
  return problem == Problem::NoText ? text::kPasteNothing : text::kClipboardFailed;
}

}  // namespace

bool BoxClipboard::Copy() {
  const auto block = parts_.grid.Chosen();
  if (block && parts_.grid.TakeEntry()) Put(parts_.textOf(*block));
  return block.has_value();
}

bool BoxClipboard::Paste() {
  if (parts_.viewOnly) return false;
  const ClipboardText clipboard = ReadClipboard(kLargestPaste);
  if (clipboard.problem == Problem::NoText) return false;
  if (clipboard.problem != Problem::None) {
    Tell(TextOf(clipboard.problem));
    return true;
  }
  if (!IsBlock(clipboard.text)) {
    // One cell of a spreadsheet ends its line.
    std::string_view rest = clipboard.text;
    const std::string_view cell = TakeLine(rest);
    return cell.size() < clipboard.text.size() && parts_.grid.TypeText(std::string(cell));
  }
  if (parts_.grid.TakeEntry()) parts_.paste(clipboard.text);
  return true;
}

void BoxClipboard::PasteAny() {
  const ClipboardText clipboard = ReadClipboard(kLargestPaste);
  if (clipboard.problem != Problem::None) return Tell(TextOf(clipboard.problem));
  parts_.paste(clipboard.text);
}

void BoxClipboard::Put(const std::string& text) {
  if (!WriteClipboard(text)) return Tell(text::kClipboardFailed);
  parts_.say(parts_.toUser.Text(text::kCopied));
}

void BoxClipboard::Tell(std::int32_t problem) {
  parts_.toUser.Tell(Icon::Exclamation, problem, {std::to_string(kLargestPaste >> 10)});
}

void BoxClipboard::ShowMenu(wxButton& button, const std::vector<Item>& first) {
  if (!parts_.grid.TakeEntry()) return;
  std::vector<Item> items = first;
  items.push_back({text::kCopyBoxes, false, [this] {
                     const EntryGrid& grid = parts_.grid;
                     Put(parts_.textOf(grid.Chosen().value_or(grid.AllBoxes())));
                   }});
  items.push_back({text::kPaste, true, [this] { PasteAny(); }});
  wxMenu menu;
  Mnemonics letters;
  for (std::size_t at = 0; at < items.size(); ++at) {
    const wxString caption = letters.Give(ToWx(parts_.toUser.Text(items[at].caption)));
    const bool usable = !items[at].changes || !parts_.viewOnly;
    menu.Append(wxID_HIGHEST + static_cast<int>(at), caption)->Enable(usable);
  }
  const wxWeakRef<wxButton> alive(&button);
  const int chosen = button.GetPopupMenuSelectionFromUser(menu, 0, button.GetSize().y);
  if (!alive) return;
  parts_.focus();
  if (chosen >= wxID_HIGHEST) items.at(static_cast<std::size_t>(chosen - wxID_HIGHEST)).act();
}

}  // namespace zek
