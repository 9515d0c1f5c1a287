#include "forms/weekday/ZV_WDCGrid.h"

#include <utility>

#include <wx/settings.h>
#include <wx/sizer.h>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
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

WeekdayGrid::WeekdayGrid(wxWindow* parent, WeekdayEditor& editor, Parts parts)
    : EntryGrid(parent, std::move(parts), kDaysOfType),
      editor_(editor),
      rowLabel_(new wxStaticText(this, wxID_ANY, {})),
      strip_(new RowStrip(this, [this](std::size_t row) { GoToRow(row); })) {
  rowLabel_->SetName("Label_Row");
  BuildLabels();
  BuildBoxes();
  BuildScrollBar();
  LayOut();
  ShowCells();
}

void WeekdayGrid::BuildLabels() {
  for (std::size_t i = 0; i < kBoxKinds; ++i) {
    Label_Info.at(i) =
        new wxStaticText(this, wxID_ANY, ToWx(Texts().Text(kInfoCaption + static_cast<int>(i))));
    Label_Info.at(i)->SetName("Label_Info" + std::to_string(i));
  }
  for (std::size_t column = 0; column < kDaysOfType; ++column) {
    auto*& label = Label_Weekdays.at(column);
    label = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                             wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    label->SetName("Label_Weekdays" + std::to_string(column));
  }
}

void WeekdayGrid::BuildBoxes() {
  for (std::size_t number = 0; number < kBoxKinds * kDaysOfType; ++number) {
    const WeekdayFocus at = At(number);
    const bool isTime = at.box == WeekdayBox::Start || at.box == WeekdayBox::Stop;
    EntryBox* const box =
        NewBox(kBoxNames.at(Place(at.box)) + std::to_string(at.column), "-9999.99",
               isTime ? BoxKind::Time : BoxKind::Value, !editor_.ViewOnly());
    if (at.box == WeekdayBox::ValueOff && !editor_.HasStopValues()) box->Disable();
  }
}

void WeekdayGrid::BuildScrollBar() {
  VScroll_WDC = new wxScrollBar(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSB_VERTICAL);
  VScroll_WDC->SetName("VScroll_WDC");
  VScroll_WDC->SetScrollbar(0, 1, static_cast<int>(kWeekdayRows), 1);
  VScroll_WDC->SetToolTip(ToWx(Texts().Text(kRowCaption)));
  SetAccessibleName(*VScroll_WDC, ToWx(Texts().Text(kRowCaption)));
  for (const auto& type :
       {wxEVT_SCROLL_THUMBTRACK, wxEVT_SCROLL_CHANGED, wxEVT_SCROLL_LINEUP, wxEVT_SCROLL_LINEDOWN,
        wxEVT_SCROLL_PAGEUP, wxEVT_SCROLL_PAGEDOWN, wxEVT_SCROLL_TOP, wxEVT_SCROLL_BOTTOM}) {
    VScroll_WDC->Bind(type, &WeekdayGrid::OnScroll, this);
  }
}

void WeekdayGrid::LayOut() {
  const int gap = FromDIP(kGap);
  auto* const rows = new wxBoxSizer(wxHORIZONTAL);
  rows->Add(rowLabel_, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, 3 * gap);
  rows->Add(strip_, 0, wxALIGN_CENTER_VERTICAL);
  auto* const cells = new wxGridBagSizer(gap, gap);
  for (int i = 0; i < static_cast<int>(kBoxKinds); ++i) {
    cells->Add(Label_Info.at(static_cast<std::size_t>(i)), {i + 1, 0}, {1, 1},
               wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
  }
  for (int column = 0; column < static_cast<int>(kDaysOfType); ++column) {
    const auto place = static_cast<std::size_t>(column);
    cells->Add(Label_Weekdays.at(place), {0, column + 1}, {1, 1}, wxEXPAND);
    for (int i = 0; i < static_cast<int>(kBoxKinds); ++i)
      cells->Add(&Box(NumberOf({static_cast<WeekdayBox>(i), place})), {i + 1, column + 1}, {1, 1},
                 wxEXPAND);
    cells->AddGrowableCol(static_cast<std::size_t>(column) + 1, 1);
  }
  cells->Add(VScroll_WDC, {0, static_cast<int>(kDaysOfType) + 1},
             {static_cast<int>(kBoxKinds) + 1, 1}, wxEXPAND);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(rows, 0, wxBOTTOM, 3 * gap);
  whole->Add(cells, 0, wxEXPAND);
  SetSizer(whole);
}

std::optional<Refusal> WeekdayGrid::EnterText(std::size_t box, const std::string& typed) {
  return editor_.Enter(At(box), typed);
}

void WeekdayGrid::OnEntered(std::size_t box) {
  editor_.FocusColumn(At(box).column);
  ShowHeaders();
}

void WeekdayGrid::OnScroll(wxScrollEvent& event) {
  GoToRow(static_cast<std::size_t>(event.GetPosition()));
}

void WeekdayGrid::GoToRow(std::size_t row) {
  if (TakeEntry()) editor_.ShowRow(row);
  ShowCells();
  SelectFocused();
}

void WeekdayGrid::Focus(WeekdayFocus at) { FocusBox(NumberOf(at)); }

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
  const auto box = FocusedBox();
  if (!box) return false;
  if (!TakeEntry()) return true;
  WeekdayFocus next = NextFocus(At(*box));
  if (!Box(NumberOf(next)).IsEnabled()) next = NextFocus(next);
  Focus(next);
  return true;
}

void WeekdayGrid::ShowCells() {
  ShowBoxes();
  rowLabel_->SetLabel(
      ToWx(Message(Texts().Text(kRowOfCaption), {std::to_string(editor_.Row() + 1)})));
  VScroll_WDC->SetThumbPosition(static_cast<int>(editor_.Row()));
  strip_->ShowRows(UsedRowsOf(editor_.Table(), editor_.Type()), editor_.Row());
  ShowHeaders();
}

void WeekdayGrid::ShowHeaders() {
  for (std::size_t column = 0; column < kDaysOfType; ++column) {
    wxStaticText& label = *Label_Weekdays.at(column);
    const wxString day = ToWx(editor_.DayName(column, Texts()));
    if (label.GetLabel() == day) continue;
    label.SetLabel(day);
    label.SetToolTip(day);
    for (std::size_t i = 0; i < kBoxKinds; ++i)
      Box(NumberOf({static_cast<WeekdayBox>(i), column}))
          .SetSpokenName(Label_Info.at(i)->GetLabel() + " " + day);
  }
  shown();
  if (marked_ == editor_.Column()) return;
  // The mark stays while a button has the focus, because the buttons act on the marked column.
  if (marked_) MarkLabel(*Label_Weekdays.at(*marked_), false);
  MarkLabel(*Label_Weekdays.at(editor_.Column()), true);
  marked_ = editor_.Column();
}

}  // namespace zek
