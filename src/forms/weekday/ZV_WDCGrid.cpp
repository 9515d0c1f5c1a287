#include "forms/weekday/ZV_WDCGrid.h"

#include <utility>

#include <wx/settings.h>
#include <wx/sizer.h>

#include "forms/ZV_PickList.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/EntryBox.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr std::array kBoxNames{"Text_Start", "Text_Stop", "Text_ValueOn", "Text_ValueOff"};
constexpr int kInfoCaption = text::kWeekdayCaption + 2;  // the first of four
constexpr int kRowCaption = text::kWeekdayCaption + 11;
constexpr int kRowOfCaption = text::kWeekdayCaption + 12;
constexpr int kGap = 4;

std::size_t Place(WeekdayBox box) { return static_cast<std::size_t>(box); }

}  // namespace

WeekdayGrid::WeekdayGrid(wxWindow* parent, WeekdayEditor& editor, const LanguageTexts& texts,
                         PickList pickList, std::function<void()> changed)
    : wxPanel(parent),
      editor_(editor),
      texts_(texts),
      startValues_(WithoutDefault(pickList)),
      stopValues_(std::move(pickList)),
      changed_(std::move(changed)),
      rowLabel_(new wxStaticText(this, wxID_ANY, {})),
      strip_(new RowStrip(this, [this](std::size_t row) { GoToRow(row); })) {
  rowLabel_->SetName("Label_Row");
  BuildBoxes();
  VScroll_WDC = new wxScrollBar(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSB_VERTICAL);
  VScroll_WDC->SetName("VScroll_WDC");
  VScroll_WDC->SetScrollbar(0, 1, static_cast<int>(kWeekdayRows), 1);
  VScroll_WDC->SetToolTip(ToWx(texts_.Text(kRowCaption)));
  SetAccessibleName(*VScroll_WDC, ToWx(texts_.Text(kRowCaption)));
  for (const auto& type :
       {wxEVT_SCROLL_THUMBTRACK, wxEVT_SCROLL_CHANGED, wxEVT_SCROLL_LINEUP, wxEVT_SCROLL_LINEDOWN,
        wxEVT_SCROLL_PAGEUP, wxEVT_SCROLL_PAGEDOWN, wxEVT_SCROLL_TOP, wxEVT_SCROLL_BOTTOM}) {
    VScroll_WDC->Bind(type, &WeekdayGrid::OnScroll, this);
  }
  LayOut();
  ShowCells();
}

// Created column by column, because that sets the order of the Tab key.
void WeekdayGrid::BuildBoxes() {
  for (std::size_t i = 0; i < kBoxes; ++i) {
    Label_Info.at(i) =
        new wxStaticText(this, wxID_ANY, ToWx(texts_.Text(kInfoCaption + static_cast<int>(i))));
    Label_Info.at(i)->SetName("Label_Info" + std::to_string(i));
  }
  for (std::size_t column = 0; column < kDaysOfType; ++column) {
    auto*& label = Label_Weekdays.at(column);
    label = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                             wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE);
    label->SetName("Label_Weekdays" + std::to_string(column));
    for (std::size_t i = 0; i < kBoxes; ++i)
      boxes_.at(i).at(column) = NewBox({static_cast<WeekdayBox>(i), column});
  }
}

wxTextCtrl* WeekdayGrid::NewBox(WeekdayFocus at) {
  auto* const box = NewEntryBox(this, kBoxNames.at(Place(at.box)) + std::to_string(at.column),
                                "-9999.99", !editor_.ViewOnly());
  if (at.box == WeekdayBox::ValueOff && !editor_.HasStopValues()) box->Disable();
  box->Bind(wxEVT_SET_FOCUS, [this, at](wxFocusEvent& event) {
    if (IsShownOnScreen()) OnEntered(at.column);
    event.Skip();
  });
  box->Bind(wxEVT_KILL_FOCUS, [this, at](wxFocusEvent& event) {
    if (IsShownOnScreen()) TakeText(at);  // the editor of a closed form is gone
    event.Skip();
  });
  const auto offer = [&](const PickList& list) {
    OfferPickList(*box, list, texts_, [this, at](const std::string& typed) { Enter(at, typed); });
  };
  if (at.box == WeekdayBox::ValueOn) offer(startValues_);
  if (at.box == WeekdayBox::ValueOff) offer(stopValues_);
  return box;
}

void WeekdayGrid::LayOut() {
  const int gap = FromDIP(kGap);
  auto* const rows = new wxBoxSizer(wxHORIZONTAL);
  rows->Add(rowLabel_, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, 3 * gap);
  rows->Add(strip_, 0, wxALIGN_CENTER_VERTICAL);
  auto* const cells = new wxGridBagSizer(gap, gap);
  for (int i = 0; i < static_cast<int>(kBoxes); ++i) {
    cells->Add(Label_Info.at(static_cast<std::size_t>(i)), {i + 1, 0}, {1, 1},
               wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
  }
  for (int column = 0; column < static_cast<int>(kDaysOfType); ++column) {
    const auto place = static_cast<std::size_t>(column);
    cells->Add(Label_Weekdays.at(place), {0, column + 1}, {1, 1}, wxEXPAND);
    for (int i = 0; i < static_cast<int>(kBoxes); ++i)
      cells->Add(boxes_.at(static_cast<std::size_t>(i)).at(place), {i + 1, column + 1}, {1, 1},
                 wxEXPAND);
    cells->AddGrowableCol(static_cast<std::size_t>(column) + 1, 1);
  }
  cells->Add(VScroll_WDC, {0, static_cast<int>(kDaysOfType) + 1}, {static_cast<int>(kBoxes) + 1, 1},
             wxEXPAND);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(rows, 0, wxBOTTOM, 3 * gap);
  whole->Add(cells, 0, wxEXPAND);
  SetSizer(whole);
}

wxTextCtrl& WeekdayGrid::Box(WeekdayFocus at) const {
  return *boxes_.at(Place(at.box)).at(at.column);
}

std::optional<WeekdayFocus> WeekdayGrid::FocusedBox() const {
  const wxWindow* const focused = FindFocus();
  for (std::size_t i = 0; i < kBoxes; ++i) {
    for (std::size_t column = 0; column < kDaysOfType; ++column)
      if (boxes_.at(i).at(column) == focused) return {{static_cast<WeekdayBox>(i), column}};
  }
  return std::nullopt;
}

std::string WeekdayGrid::CellText(WeekdayFocus at) const {
  switch (at.box) {
    case WeekdayBox::Start:
      return editor_.StartText(at.column);
    case WeekdayBox::Stop:
      return editor_.StopText(at.column);
    case WeekdayBox::ValueOn:
      return editor_.ValueOnText(at.column);
    case WeekdayBox::ValueOff:
      break;
  }
  return editor_.ValueOffText(at.column);
}

void WeekdayGrid::TakeText(WeekdayFocus at) {
  const std::string typed = FromWx(Box(at).GetValue());
  if (typed != CellText(at)) Enter(at, typed);
}

void WeekdayGrid::Enter(WeekdayFocus at, const std::string& typed) {
  switch (at.box) {
    case WeekdayBox::Start:
      editor_.EnterStart(at.column, typed);
      break;
    case WeekdayBox::Stop:
      editor_.EnterStop(at.column, typed);
      break;
    case WeekdayBox::ValueOn:
      editor_.EnterValueOn(at.column, typed);
      break;
    case WeekdayBox::ValueOff:
      editor_.EnterValueOff(at.column, typed);
      break;
  }
  ShowCells();
  changed_();
}

void WeekdayGrid::TakeEntry() {
  if (const auto at = FocusedBox()) TakeText(*at);
}

void WeekdayGrid::OnEntered(std::size_t column) {
  editor_.FocusColumn(column);
  ShowHeaders();
}

void WeekdayGrid::OnScroll(wxScrollEvent& event) {
  GoToRow(static_cast<std::size_t>(event.GetPosition()));
}

void WeekdayGrid::GoToRow(std::size_t row) {
  TakeEntry();
  editor_.ShowRow(row);
  ShowCells();
  if (const auto at = FocusedBox()) Box(*at).SelectAll();
}

bool WeekdayGrid::HasEntry() const {
  const auto at = FocusedBox();
  return at && FromWx(Box(*at).GetValue()) != CellText(*at);
}

void WeekdayGrid::DropEntry() {
  ShowCells();
  if (const auto at = FocusedBox()) Box(*at).SelectAll();
}

void WeekdayGrid::Focus(WeekdayFocus at) {
  Box(at).SetFocus();
  Box(at).SelectAll();
}

bool WeekdayGrid::TakeKey(int key) {
  if (key == WXK_PAGEDOWN || key == WXK_NUMPAD_PAGEDOWN) {
    GoToRow(editor_.Row() + 1);
    return true;
  }
  if (key == WXK_PAGEUP || key == WXK_NUMPAD_PAGEUP) {
    if (editor_.Row() > 0) GoToRow(editor_.Row() - 1);
    return true;
  }
  if (key != WXK_RETURN && key != WXK_NUMPAD_ENTER) return false;
  const std::optional<WeekdayFocus> at = FocusedBox();
  if (!at) return false;
  WeekdayFocus next = NextFocus(*at);
  if (!Box(next).IsEnabled()) next = NextFocus(next);
  Box(next).SetFocus();
  return true;
}

void WeekdayGrid::ShowCells() {
  for (std::size_t i = 0; i < kBoxes; ++i) {
    for (std::size_t column = 0; column < kDaysOfType; ++column) {
      const WeekdayFocus at{static_cast<WeekdayBox>(i), column};
      const wxString wanted = ToWx(CellText(at));
      if (Box(at).GetValue() != wanted) Box(at).ChangeValue(wanted);
    }
  }
  rowLabel_->SetLabel(
      ToWx(Message(texts_.Text(kRowOfCaption), {std::to_string(editor_.Row() + 1)})));
  VScroll_WDC->SetThumbPosition(static_cast<int>(editor_.Row()));
  strip_->ShowRows(UsedRowsOf(editor_.Table(), editor_.Type()), editor_.Row());
  ShowHeaders();
}

wxString WeekdayGrid::DayName(std::size_t column) const {
  if (editor_.Type() == 0) return ToWx(texts_.Text(text::kMonday + static_cast<int>(column)));
  return ToWx(Message(texts_.Text(text::kSpecialDay), {std::to_string(column + 1)}));
}

void WeekdayGrid::ShowHeaders() {
  for (std::size_t column = 0; column < kDaysOfType; ++column) {
    wxStaticText& label = *Label_Weekdays.at(column);
    const wxString day = DayName(column);
    if (label.GetLabel() == day) continue;
    label.SetLabel(day);
    for (std::size_t i = 0; i < kBoxes; ++i)
      SetAccessibleName(*boxes_.at(i).at(column), Label_Info.at(i)->GetLabel() + " " + day);
  }
  if (marked_ == editor_.Column()) return;
  // The mark stays while a button has the focus, because the buttons act on the marked column.
  if (marked_) MarkLabel(*Label_Weekdays.at(*marked_), false);
  MarkLabel(*Label_Weekdays.at(editor_.Column()), true);
  marked_ = editor_.Column();
}

}  // namespace zek
