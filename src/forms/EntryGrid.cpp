#include "forms/EntryGrid.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <wx/toplevel.h>
#include <wx/weakref.h>

#include "editors/TimeChoices.h"
#include "formats/CatalogueFields.h"
#include "lang/TextNumbers.h"
#include "ui/WxText.h"

namespace zek {
namespace {
constexpr const char* kMidnight = "00:00";
constexpr long kPauseMs = 1000;  // of somebody who stops typing

bool IsLetter(const wxKeyEvent& event) {
  return event.GetUnicodeKey() >= WXK_SPACE && event.GetUnicodeKey() != WXK_DELETE &&
         (event.GetModifiers() & (wxMOD_CONTROL | wxMOD_ALT)) == 0;
}
}  // namespace

EntryGrid::EntryGrid(wxWindow* parent, Parts parts, std::size_t columns)
    : wxPanel(parent), parts_(std::move(parts)), columns_(columns) {
  wxGetTopLevelParent(this)->Bind(wxEVT_CHILD_FOCUS, &EntryGrid::OnChildFocus, this);
}

EntryBox* EntryGrid::NewBox(const std::string& name, const wxString& widest, BoxKind kind,
                            bool editable) {
  const std::size_t number = boxes_.size();
  auto* const box = new EntryBox(this, name, widest, editable);
  boxes_.push_back(box);
  box->Text().Bind(wxEVT_TEXT, [this, number](wxCommandEvent& event) {
    OnTyped(number);
    event.Skip();
  });
  box->Text().Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    blocked_ = false;
    event.Skip(!BelongsElsewhere(event) && !ChooseByKey(event));
  });
  box->Text().Bind(wxEVT_LEFT_DOWN, [this, number](wxMouseEvent& event) {
    const bool choose = event.ShiftDown() && FocusedBox() && entry_ != number;
    if (choose) Choose(Block{*entry_, number});
    event.Skip(!choose);
  });
  if (kind == BoxKind::Time) {
    box->Text().Bind(wxEVT_MOUSEWHEEL,
                     [this, number](wxMouseEvent& event) { OnWheel(number, event); });
  }
  const bool isValue = kind == BoxKind::Value;
  if (!isValue || !NamesOf(number).items.empty()) {
    box->Offer([this, number, kind] { return Drop(number, kind); },
               ToWx(Texts().Text(text::kPickListHint)), isValue);
  }
  return box;
}

std::optional<std::size_t> EntryGrid::FocusedBox() const {
  return entry_ && Box(*entry_).Text().HasFocus() ? entry_ : std::nullopt;
}

void EntryGrid::FocusBox(std::size_t box) {
  Box(box).Focus();
  if (entry_ != box) Arrive(box);  // some systems send the focus event before the form is visible
}

void EntryGrid::SelectFocused() {
  if (entry_) Box(*entry_).Text().SelectAll();
}

// --- Display ---

void EntryGrid::ShowBoxes() {
  for (std::size_t box = 0; box < boxes_.size(); ++box) ShowBox(box);
}

void EntryGrid::ShowBox(std::size_t box) {
  if (wrong_ && wrong_->box == box) return;
  Box(box).ShowText(entry_ == box ? CellText(box) : ShownText(box));
  const std::int32_t mark = MarkOf(box);
  Box(box).Mark(mark == 0 ? wxString() : ToWx(Texts().Text(mark)));
}

// --- The focus ---

void EntryGrid::OnChildFocus(wxChildFocusEvent& event) {
  event.Skip();
  // A form that opens or closes is not used.
  const wxWindow* const window = event.GetWindow();
  if (!IsShownOnScreen() || window->GetId() == wxID_CANCEL) return;
  const auto found = std::find_if(boxes_.begin(), boxes_.end(),
                                  [window](const EntryBox* box) { return &box->Text() == window; });
  const auto reached = found == boxes_.end()
                           ? std::nullopt
                           : std::optional(static_cast<std::size_t>(found - boxes_.begin()));
  if (entry_ && entry_ == reached) return;
  if (entry_) {
    blocked_ = !Leave(*entry_);
    if (blocked_) return;
    const std::size_t left = *std::exchange(entry_, std::nullopt);
    ShowBox(left);
    Box(left).Text().SelectNone();
  }
  if (reached) Arrive(*reached);
}

void EntryGrid::Arrive(std::size_t box) {
  entry_ = box;
  last_ = box;
  wheel_ = 0;
  if (chosen_ && chosen_->first != box) Choose({});
  ShowBox(box);
  Box(box).Text().SelectAll();
  SayMark();
  OnEntered(box);
}

void EntryGrid::SayMark() {
  const std::int32_t mark = entry_ ? MarkOf(*entry_) : 0;
  parts_.say(mark == 0 ? std::string() : Texts().Text(mark));
}

// --- Entries ---

bool EntryGrid::TakeEntry() {
  return !std::exchange(blocked_, false) && (!entry_ || Leave(*entry_));
}

bool EntryGrid::HasEntry() const { return entry_ && Box(*entry_).Typed() != CellText(*entry_); }

void EntryGrid::DropEntry() {
  wrong_.reset();
  ShowBoxes();
  SelectFocused();
  SayMark();
}

bool EntryGrid::Leave(std::size_t box) {
  const std::string typed = Box(box).Typed();
  wrong_.reset();
  const bool changes = typed != CellText(box);
  const std::optional<Refusal> refusal = changes ? EnterText(box, typed) : std::nullopt;
  if (refusal) {
    Refuse(box, *refusal);
    return false;
  }
  ShowBoxes();
  if (changes) {
    parts_.changed();
    SayMark();
  }
  return true;
}

// Deferred, because the focus is still moving.
void EntryGrid::Refuse(std::size_t box, const Refusal& refusal) {
  wrong_ = {box, refusal};
  if (!refusal.instead.empty()) Box(box).ShowText(refusal.instead);
  Box(box).Mark(ToWx(refusal.MessageIn(Texts(), ". ")));
  parts_.changed();
  CallAfter([this, box, refusal] {
    if (!IsShownOnScreen()) return;
    const wxWeakRef<EntryGrid> alive(this);
    Box(box).Focus();
    parts_.say(refusal.MessageIn(Texts(), ". "));
    if (refusal.instead.empty()) return;
    parts_.prompts.Show(Icon::Information, refusal.MessageIn(Texts(), "\r\n"));
    if (alive) CallAfter([this, box] { Box(box).Focus(); });
  });
}

void EntryGrid::OnTyped(std::size_t box) {
  if (wrong_ && wrong_->box == box) {
    wrong_.reset();
    Box(box).Mark({});
  }
  Choose({});
  if (HasEntry() && LeadFrom(box)) typedElsewhere_ = lastKey_;
}

// The rest of what is typed without a pause after the first letter led to this box is no date. A
// key that is no letter ends it, too.
bool EntryGrid::BelongsElsewhere(const wxKeyEvent& event) {
  lastKey_ = event.GetTimestamp();
  const int key = event.GetKeyCode();
  if (!typedElsewhere_ || key == WXK_SHIFT || key == WXK_RAW_CONTROL || key == WXK_ALT)
    return false;
  const bool goesOn = IsLetter(event) && lastKey_ - *typedElsewhere_ < kPauseMs;
  typedElsewhere_ = goesOn ? std::optional(lastKey_) : std::nullopt;
  return goesOn;
}

// Leads to the box that must be filled before this one.
bool EntryGrid::LeadFrom(std::size_t box) {
  const auto lead = LeadOf(box);
  if (!lead) return false;
  Box(box).ShowText(CellText(box));
  FocusBox(lead->box);
  parts_.say(Texts().Text(lead->text));
  return true;
}

void EntryGrid::OnWheel(std::size_t box, wxMouseEvent& event) {
  wxTextCtrl& text = Box(box).Text();
  if (!text.HasFocus() || !text.IsEditable() || event.GetWheelRotation() == 0 ||
      event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL) {
    event.Skip();
    return;
  }
  // Touchpads send many events, each a small part of a step.
  wheel_ += event.GetWheelRotation();
  if (std::abs(wheel_) < event.GetWheelDelta()) return;
  const int step = std::exchange(wheel_, 0) > 0 ? 1 : -1;
  const std::string typed = Box(box).Typed();
  const std::string next = QuarterBeside(typed, step);
  if (next == typed || (next == kMidnight && !TakesMidnight(box))) return;
  text.SetValue(ToWx(next));
  text.SelectAll();
}

bool EntryGrid::TypeText(const std::string& text) {
  const auto box = FocusedBox();
  if (!box || !Box(*box).Text().IsEditable()) return false;
  Box(*box).Text().WriteText(ToWx(text));
  return true;
}

// --- Several boxes ---

std::optional<EntryGrid::Block> EntryGrid::Chosen() const {
  if (!chosen_) return std::nullopt;
  const std::size_t row = chosen_->first / columns_;
  const std::size_t column = chosen_->first % columns_;
  const std::size_t otherRow = chosen_->last / columns_;
  const std::size_t otherColumn = chosen_->last % columns_;
  return Block{std::min(row, otherRow) * columns_ + std::min(column, otherColumn),
               std::max(row, otherRow) * columns_ + std::max(column, otherColumn)};
}

void EntryGrid::Choose(const std::optional<Block>& corners) {
  if (!chosen_ && !corners) return;
  chosen_ = corners && corners->first != corners->last ? corners : std::nullopt;
  const auto block = Chosen();
  for (std::size_t box = 0; box < boxes_.size(); ++box) {
    const std::size_t row = box / columns_;
    const std::size_t column = box % columns_;
    Box(box).Choose(block && row >= block->first / columns_ && row <= block->last / columns_ &&
                    column >= block->first % columns_ && column <= block->last % columns_);
  }
}

bool EntryGrid::ChooseByKey(const wxKeyEvent& event) {
  if (event.GetModifiers() != (wxMOD_CONTROL | wxMOD_SHIFT) || !FocusedBox()) return false;
  const std::size_t from = chosen_ ? chosen_->last : *entry_;
  std::size_t to = from;
  switch (event.GetKeyCode()) {
    case WXK_LEFT:
    case WXK_NUMPAD_LEFT:
      if (from % columns_ > 0) --to;
      break;
    case WXK_RIGHT:
    case WXK_NUMPAD_RIGHT:
      if (from % columns_ + 1 < columns_) ++to;
      break;
    case WXK_UP:
    case WXK_NUMPAD_UP:
      if (from >= columns_) to -= columns_;
      break;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
      if (from + columns_ < boxes_.size()) to += columns_;
      break;
    default:
      return false;
  }
  Choose(Block{*entry_, to});
  return true;
}

// --- What there is to choose ---

DropDown* EntryGrid::Drop(std::size_t box, BoxKind kind) {
  if (LeadFrom(box)) return nullptr;
  const auto choose = [this, box](const std::string& typed) {
    Box(box).ShowText(typed == kNoValueText ? std::string() : typed);
    if (Leave(box)) SelectFocused();
  };
  if (kind == BoxKind::Date) {
    const std::string typed = Box(box).Typed();
    return NewDropCalendar(Box(box).Text(), typed.empty() ? DateNear(box) : typed, Texts(), choose);
  }
  return kind == BoxKind::Time ? DropTimes(box, choose) : DropNames(box, choose);
}

DropDown* EntryGrid::DropNames(std::size_t box,
                               const std::function<void(const std::string&)>& choose) {
  const std::string typed = Box(box).Typed();
  std::vector<DropItem> items;
  for (const PickListItem& item : NamesOf(box).items)
    items.push_back({ToWx(item.name), ToWx("[" + item.value + "]"), item.value, item.IsIn(typed)});
  return NewDropList(Box(box).Text(), std::move(items), 0, choose);
}

DropDown* EntryGrid::DropTimes(std::size_t box,
                               const std::function<void(const std::string&)>& choose) {
  const std::string typed = Box(box).Typed();
  std::vector<DropItem> items;
  std::size_t nearest = 0;
  for (const std::string& time : QuarterHours()) {
    if (time == kMidnight && !TakesMidnight(box)) continue;
    if (time <= typed) nearest = items.size();
    items.push_back({ToWx(time), {}, time, time == typed});
  }
  return NewDropList(Box(box).Text(), std::move(items), nearest, choose);
}

}  // namespace zek
