#include <wx/gbsizer.h>

#include "formats/CalendarNames.h"
#include "forms/calendar/ZV_SDC.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "ui/WxText.h"

// The calendar editor's controls and their layout.
namespace zek {
namespace {

constexpr int kFrameSdc = text::kCalendarCaption + 1;
constexpr int kFrameYear = text::kCalendarCaption + 2;
constexpr int kFrameMonth = text::kCalendarCaption + 3;
constexpr int kFrameDay = text::kCalendarCaption + 4;
constexpr int kGap = 8;
constexpr int kOptionGap = 4;
constexpr int kYearColumns = 2;
constexpr int kMonthColumns = 4;

// The first of `options` begins the group, unless another button did.
template <std::size_t N, class CaptionOf>
void BuildOptions(std::array<wxRadioButton*, N>& options, wxStaticBox* frame,
                  const std::string& name, CaptionOf captionOf, int first = wxRB_GROUP) {
  for (std::size_t i = 0; i < N; ++i) {
    options.at(i) = new wxRadioButton(frame, wxID_ANY, captionOf(static_cast<int>(i)),
                                      wxDefaultPosition, wxDefaultSize, i == 0 ? first : 0);
    options.at(i)->SetName(name + std::to_string(i));
  }
}

// Arranges `options` inside their frame, `columns` to a row.
template <std::size_t N>
wxSizer* InRows(const std::array<wxRadioButton*, N>& options, wxStaticBox* frame, int columns) {
  const int gap = frame->FromDIP(kOptionGap);
  auto* const cells = new wxFlexGridSizer(columns, gap, 3 * gap);
  for (wxRadioButton* const option : options) cells->Add(option);
  auto* const whole = new wxStaticBoxSizer(frame, wxVERTICAL);
  whole->Add(cells, 0, wxALL, frame->FromDIP(kGap));
  return whole;
}

}  // namespace

// The order of creation is the order of the keyboard letters.
void ZV_SDC::Build() {
  BuildGrid();
  BuildDayTypes();
  BuildYearsAndMonths();
  BuildYearView();
  undoAndRedo_ = NewUndoAndRedo(letters_);
  auto* const holidays = NewImport("Command_Holidays", text::kHolidaysButton, DateSource::Holidays);
  auto* const import = NewImport("Command_Import", text::kImportButton, DateSource::File);
  auto* const otherYear = NewImport("Command_CopyYear", text::kCopyYear, DateSource::OtherYear);
  Command_Ok = NewSave(letters_.Give(Caption(text::kCalendarOk)), {});
  Command_Cancel = NewCommand(wxID_CANCEL, "Command_Cancel",
                              letters_.Give(Caption(text::kCalendarCancel)), {}, false);
  NewFindings(letters_);
  const int gap = FromDIP(kGap);
  auto* const dayTypes = DayTypeContent();
  auto* const months = InRows(Option_Month, Frame_Month, kMonthColumns);
  ofMonth_.insert(ofMonth_.end(), {dayTypes, months});
  auto* const upper = new wxBoxSizer(wxHORIZONTAL);
  upper->Add(GridContent(), 1, wxEXPAND | wxRIGHT, gap);
  upper->Add(dayTypes, 0, wxEXPAND);
  auto* const lower = new wxBoxSizer(wxHORIZONTAL);
  lower->Add(InRows(Option_Year, Frame_Year, kYearColumns), 0, wxEXPAND | wxRIGHT, gap);
  lower->Add(months, 1, wxEXPAND);
  hint_ = new wxStaticText(this, wxID_ANY, hints_[0], wxDefaultPosition, wxDefaultSize,
                           wxST_ELLIPSIZE_END);
  const Topic& object = proc_.topics[proc_.selection.CurrentObject];
  auto* const whose = new wxStaticText(
      this, wxID_ANY, ToWx(Message(proc_.Text(text::kOfController), {object.Description})));
  auto* const years = new wxBoxSizer(wxHORIZONTAL);
  years->Add(Command_Year, 0, wxRIGHT, 3 * gap);
  years->Add(holidays, 0, wxRIGHT, gap);
  years->Add(import, 0, wxRIGHT, gap);
  years->Add(otherYear);
  auto* const commands = new wxBoxSizer(wxHORIZONTAL);
  commands->Add(undoAndRedo_, 0, wxRIGHT, 3 * gap);
  commands->AddStretchSpacer();
  commands->Add(FindingsButton(), 0, wxRIGHT, 3 * gap);
  commands->Add(Command_Ok, 0, wxRIGHT, gap);
  commands->Add(Command_Cancel);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(whose, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(upper, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(lower, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(hint_, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(years, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(commands, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  holidays->MoveAfterInTabOrder(Command_Year);
  import->MoveAfterInTabOrder(holidays);
  otherYear->MoveAfterInTabOrder(import);
  FindingsButton()->MoveBeforeInTabOrder(Command_Ok);
  LayOut(whole);
}

// A frame reserves the keyboard letter of its caption, so create it before its buttons.
wxStaticBox* ZV_SDC::NewFrame(const std::string& name, int captionText, bool usable) {
  auto* const frame = new wxStaticBox(this, wxID_ANY, letters_.Give(Caption(captionText)));
  frame->SetName(name);
  BlockWhileBusy(frame, usable);
  return frame;
}

void ZV_SDC::BuildGrid() {
  Frame_SDC = NewFrame("Frame_SDC", kFrameSdc);
  const auto step = [this](const char* name, int caption) {
    auto* const button = new wxButton(Frame_SDC, wxID_ANY, letters_.Give(Caption(caption)));
    button->SetName(name);
    return button;
  };
  Command_Last = step("Command_Last", text::kCalendarLast);
  month_ = new wxStaticText(Frame_SDC, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                            wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE);
  month_->SetName("Label_Month");
  month_->SetFont(GetFont().Bold().Larger());
  Command_Next = step("Command_Next", text::kCalendarNext);
  Picture_Days = new DayGrid(Frame_SDC, editor_, proc_.texts, proc_.prompts, [this] {
    ShowAll();
    Say({});
  });
  Picture_Days->Bind(EVT_TYPE_MISSING,
                     [this](wxCommandEvent&) { Say(proc_.Text(text::kTypeFirst)); });
  Picture_Year = new YearGrid(
      Frame_SDC, editor_, proc_.texts, [this] { ShowAll(); }, [this] { ShowYearView(false); });
  Picture_Year->Hide();
}

void ZV_SDC::BuildYearView() {
  yearCaptions_ = {letters_.Give(Caption(text::kYearView)),
                   letters_.Give(Caption(text::kMonthView))};
  Command_Year =
      NewCommand(wxID_ANY, "Command_Year", yearCaptions_[0], Caption(text::kYearViewHint), false);
  const bool holidays = editor_.MarksSwedishHolidays();
  hints_ = {Caption(holidays ? text::kCalendarHint : text::kCalendarHintSundays),
            Caption(holidays ? text::kYearHint : text::kYearHintSundays)};
  if (editor_.ViewOnly()) hints_[0].clear();  // it tells how to change days
}

void ZV_SDC::BuildDayTypes() {
  Frame_Day = NewFrame("Frame_Day", kFrameDay, !editor_.ViewOnly());
  // One option of a group is always chosen: at first this hidden one.
  auto* const none =
      new wxRadioButton(Frame_Day, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxRB_GROUP);
  none->Hide();
  BuildOptions(
      Option_Day, Frame_Day, "Option_Day",
      [this](int type) { return ToWx(editor_.TypeCaption(type, proc_.texts)); }, 0);
}

void ZV_SDC::BuildYearsAndMonths() {
  Frame_Year = NewFrame("Frame_Year", kFrameYear);
  BuildOptions(Option_Year, Frame_Year, "Option_Year", [this](int year) {
    return wxString(std::to_string(editor_.Table().BaseYear() + year));
  });
  Frame_Month = NewFrame("Frame_Month", kFrameMonth);
  BuildOptions(Option_Month, Frame_Month, "Option_Month",
               [this](int month) { return Caption(text::kMonthNamesShown + month); });
}

wxSizer* ZV_SDC::GridContent() {
  const int gap = FromDIP(kGap);
  auto* const heading = new wxBoxSizer(wxHORIZONTAL);
  heading->Add(Command_Last);
  heading->Add(month_, 1, wxALIGN_CENTER_VERTICAL | wxLEFT | wxRIGHT, gap);
  heading->Add(Command_Next);
  auto* const whole = new wxStaticBoxSizer(Frame_SDC, wxVERTICAL);
  whole->Add(heading, 0, wxEXPAND | wxALL, gap);
  whole->Add(Picture_Days, 1, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, gap);
  whole->Add(Picture_Year, 1, wxEXPAND | wxALL, gap);
  ofMonth_.push_back(heading);
  return whole;
}

// Left column: no day type, then the weekdays. Right column: SD1 to SD7.
wxSizer* ZV_SDC::DayTypeContent() {
  const int gap = FromDIP(kOptionGap);
  auto* const cells = new wxGridBagSizer(gap, 3 * gap);
  for (int type = 0; type <= kCalendarDayTypes; ++type) {
    const bool special = type > kDaysOfWeek;
    cells->Add(Option_Day.at(static_cast<std::size_t>(type)),
               special ? wxGBPosition(type - kDaysOfWeek, 1) : wxGBPosition(type, 0));
  }
  auto* const whole = new wxStaticBoxSizer(Frame_Day, wxVERTICAL);
  whole->Add(cells, 0, wxALL, FromDIP(kGap));
  return whole;
}

}  // namespace zek
