#include <string>
#include <variant>

#include <wx/weakref.h>

#include "formats/CalendarNames.h"
#include "forms/weekday/ZV_CopyDays.h"
#include "forms/weekday/ZV_WDC.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "paste/WholeCatalogue.h"

// The weekday editor's copying and pasting.
namespace zek {

WeekdayBoxAt ZV_WDC::BoxAt(std::size_t box) const {
  const WeekdayFocus at = WeekdayGrid::At(box);
  return {{editor_.Type() * kDaysOfType + at.column, editor_.Row()}, at.box};
}

BoxClipboard::Parts ZV_WDC::ClipboardParts() {
  return {*grid_,
          proc_.ToUser(),
          editor_.ViewOnly(),
          [this](const EntryGrid::Block& block) {
            return WriteBlock(
                CopyBoxes(editor_.Now(), BoxAt(block.first), BoxAt(block.last), editor_.Rules()));
          },
          [this](const std::string& text) { Paste(text); },
          [this] { FocusEntry(); },
          [this](const std::string& said) { Say(said); }};
}

void ZV_WDC::ShowCopyMenu() {
  const auto copyWhole = [this] {
    const std::string from = proc_.selection.TopicName + "/" + proc_.selection.TscName;
    clipboard_->Put(WriteCatalogue(editor_.Now(), from, editor_.Rules()));
  };
  clipboard_->ShowMenu(*Command_CopyPaste,
                       {{text::kCopyToDays, true, [this] { CopyToOtherDays(); }},
                        {text::kCopyWhole, false, copyWhole}});
}

void ZV_WDC::CopyToOtherDays() {
  const WeekdayCell from = BoxAt(editor_.Column()).cell;
  const auto name = [this](std::size_t day) {
    return DayTypeName(day, proc_.texts, editor_.Names());
  };
  const bool hasRow = editor_.Now().At(from).Used();
  if (!HasRows(editor_.Table(), from.day))
    return Say(Message(proc_.Text(text::kNothingToCopy), {name(from.day)}));
  const wxWeakRef<ZV_WDC> alive(this);
  const auto chosen =
      AskCopyDays(this, proc_, {from.day, hasRow, editor_.PlaceName(proc_.texts)}, name);
  if (!alive) return;
  FocusEntry();
  if (!chosen) return;
  const auto copied = CopyToDays(editor_.Now(), from, chosen->to, chosen->what);
  if (const auto* full = std::get_if<std::size_t>(&copied)) {
    return proc_.ToUser().Tell(Icon::Exclamation, text::kCopyNoRoom,
                               {name(*full), std::to_string(kWeekdayRows)});
  }
  std::string days;
  for (std::size_t day = 0; day < kWeekdayDays; ++day)
    if (chosen->to.test(day)) days += (days.empty() ? "" : ", ") + name(day);
  Take(std::get<EditedWeekdays>(copied), Message(proc_.Text(text::kCopiedToDays), {days}));
}

void ZV_WDC::Paste(const std::string& text) {
  if (IsCatalogue(text)) return PasteCatalogue(text);
  const CellBlock block = ReadBlock(text);
  const auto pasted = PasteBoxes(editor_.Now(), BoxAt(grid_->PasteAt()), block, editor_.Rules());
  if (const auto* refused = std::get_if<PasteRefusal>(&pasted))
    return proc_.prompts.Show(Icon::Exclamation, refused->MessageIn(proc_.texts));
  Take(std::get<EditedWeekdays>(pasted), PastedMessage(block, proc_.texts));
}

void ZV_WDC::PasteCatalogue(const std::string& text) {
  const auto pasted = ReadCatalogue(text, editor_.Rules());
  if (const auto* refused = std::get_if<PasteRefusal>(&pasted))
    return proc_.prompts.Show(Icon::Exclamation, refused->MessageIn(proc_.texts));
  const auto& copied = std::get<CopiedCatalogue>(pasted);
  if (!copied.outside.empty()) {
    const std::string values = OutsideText(copied.outside, proc_.texts, editor_.Names());
    const wxWeakRef<ZV_WDC> alive(this);
    const bool wanted = proc_.prompts.AskYesNo(
        Icon::Exclamation, Message(proc_.Text(text::kPasteOutside), {values}), {});
    if (!alive || !wanted) return;
  }
  Take(copied.edited, Message(proc_.Text(text::kPastedWhole), {copied.from}));
}

void ZV_WDC::Take(const EditedWeekdays& edited, const std::string& said) {
  editor_.Replace(edited);
  grid_->ShowCells();
  ShowTypeCaptions();
  ShowChanges();
  Say(said);
}

}  // namespace zek
