#include "forms/calendar/ZV_Import.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <vector>

#include <wx/button.h>
#include <wx/checklst.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/weakref.h>

#include "formats/CalendarNames.h"
#include "formats/CatalogueFields.h"
#include "forms/ZV_Help.h"
#include "import/CalendarPreview.h"
#include "import/HolidayDates.h"
#include "import/ImportFile.h"
#include "import/YearCopy.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/FileBox.h"
#include "ui/Forms.h"
#include "ui/ModalForm.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 8;
constexpr int kColumns = 80;
constexpr int kLines = 18;
constexpr std::size_t kColumnGap = 2;
constexpr int kFirstSpecialDay = 8;
constexpr int kDayTypeCaption = text::kCalendarCaption + 4;

ImportWindow WindowOf(const CalendarEditor& editor) {
  ImportWindow window;
  window.years = editor.Years();
  window.last = ImportKey({window.years.Last(), kMonthsOfYear - 1, 31});
  window.lastOfEndless = editor.Table().BaseYear() + kCalendarYears - 1;
  window.lastIsAsked = false;
  return window;
}

using Cells = std::array<std::string, 4>;  // date, day type, what happens, name

// The name may be very long and comes last. A few long reasons do not move the other names.
wxArrayString InColumns(const std::vector<Cells>& rows) {
  constexpr std::size_t widest = 32;
  std::array<std::size_t, 4> widths{};
  for (const Cells& row : rows)
    for (std::size_t at = 0; at + 1 < row.size(); ++at)
      widths.at(at) = std::max(widths.at(at), std::min(row.at(at).size(), widest));
  wxArrayString lines;
  for (const Cells& row : rows) {
    std::string line;
    for (std::size_t at = 0; at < row.size(); ++at) {
      line += row.at(at);
      const std::size_t length = row.at(at).size();
      if (widths.at(at) > 0)
        line.append(kColumnGap + widths.at(at) - std::min(widths.at(at), length), ' ');
    }
    lines.Add(ToWx(line));
  }
  return lines;
}

class ImportForm final : public wxDialog {
 public:
  /// `fromFile` are the dates of a file.
  ImportForm(wxWindow* parent, ZV_Proc& proc, CalendarEditor& editor, DateSource source,
             std::optional<ImportedDates> fromFile)
      : wxDialog(parent, wxID_ANY, ToWx(proc.Text(text::kImportTitle)), wxDefaultPosition,
                 wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "ZV_Import"),
        proc_(proc),
        editor_(editor),
        source_(source),
        fromFile_(std::move(fromFile)) {
    SetIcons(ProgramIcons());
    Build();
    ShowPreview();
    RememberPlacement(*this, "ZV_Import");
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    HelpOnF1(*this, proc, HelpPageOf(Catalogue::Sdc));
    // Without a window manager the program itself must activate the window.
    CallAfter([this] {
      Raise();
      List_Dates->SetFocus();
    });
    List_Dates->Bind(wxEVT_CHECKLISTBOX, [this](wxCommandEvent& event) { Tick(event.GetInt()); });
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { Take(); }, wxID_OK);
  }

  bool Changed() const { return changed_; }

 private:
  void Build() {
    const int gap = FromDIP(kGap);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(Choices(), 0, wxEXPAND | wxALL, gap);
    List_Dates = new wxCheckListBox(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                                    wxLB_HSCROLL);
    List_Dates->SetName("List_Dates");
    SetAccessibleName(*List_Dates, GetTitle());
    List_Dates->SetFont(FixedFont());
    const wxSize letter = List_Dates->GetTextExtent("0");
    List_Dates->SetMinSize(wxSize(letter.x * kColumns, letter.y * kLines));
    whole->Add(List_Dates, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
    Label_Full = new wxStaticText(this, wxID_ANY, {});
    whole->Add(Label_Full, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
    auto* const commands = new wxBoxSizer(wxHORIZONTAL);
    commands->AddStretchSpacer();
    Command_Take = new wxButton(this, wxID_OK, Caption(text::kImportTake));
    Command_Take->SetName("Command_Take");
    Command_Take->SetDefault();
    commands->Add(Command_Take, 0, wxRIGHT, gap);
    commands->Add(new wxButton(this, wxID_CANCEL, Caption(text::kCalendarCancel)));
    whole->Add(commands, 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(whole);
  }

  wxString Caption(std::int32_t number) const { return ToWx(proc_.Text(number)); }

  // The day types SD1 to SD7; for a group of holidays also none.
  wxChoice* NewTypes(wxSizer* rows, std::int32_t caption, const char* name, bool withNone) {
    auto* const label = new wxStaticText(this, wxID_ANY, Caption(caption));
    auto* const types = new wxChoice(this, wxID_ANY);
    types->SetName(name);
    SetAccessibleName(*types, wxControl::RemoveMnemonics(label->GetLabel()));
    if (withNone) types->Append("-");
    for (int type = kFirstSpecialDay; type <= kCalendarDayTypes; ++type)
      types->Append(ToWx(editor_.TypeCaption(type, proc_.texts)));
    types->SetSelection(0);
    types->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ShowPreview(); });
    rows->Add(label, 0, wxALIGN_CENTER_VERTICAL);
    rows->Add(types);
    return types;
  }

  static std::int16_t TypeIn(const wxChoice& types, bool withNone) {
    const int chosen = types.GetSelection() - (withNone ? 1 : 0);
    return static_cast<std::int16_t>(chosen < 0 ? kNoDayType : kFirstSpecialDay + chosen);
  }

  wxSizer* Choices() {
    if (source_ == DateSource::File) return FileChoices();
    return source_ == DateSource::Holidays ? HolidayChoices() : YearChoices();
  }

  wxSizer* FileChoices() {
    auto* const rows = new wxFlexGridSizer(2, FromDIP(kGap), FromDIP(kGap));
    Choice_Type = NewTypes(rows, kDayTypeCaption, "Choice_Type", false);
    return rows;
  }

  wxSizer* HolidayChoices() {
    auto* const rows = new wxFlexGridSizer(2, FromDIP(kGap), FromDIP(kGap));
    constexpr std::array groups = {text::kHolidaysPublic, text::kHolidaysDeFacto,
                                   text::kHolidaysEves};
    constexpr std::array names = {"Choice_Public", "Choice_DeFacto", "Choice_Eves"};
    for (std::size_t at = 0; at < groups.size(); ++at)
      Choice_Group.at(at) = NewTypes(rows, groups.at(at), names.at(at), true);
    Choice_Group[0]->SetSelection(1);
    AddYears(rows, text::kHolidaysYears, proc_.now().year);
    return rows;
  }

  // Two years: the first one and the next.
  void AddYears(wxSizer* rows, std::int32_t caption, int first) {
    rows->Add(new wxStaticText(this, wxID_ANY, Caption(caption)), 0, wxALIGN_CENTER_VERTICAL);
    auto* const years = new wxBoxSizer(wxHORIZONTAL);
    constexpr std::array yearNames = {"Spin_First", "Spin_Last"};
    for (std::size_t at = 0; at < Spin_Year.size(); ++at) {
      auto* const year =
          new wxSpinCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxSP_ARROW_KEYS,
                         kFirstKnownYear, kLastKnownYear, first + static_cast<int>(at));
      year->SetName(yearNames.at(at));
      SetAccessibleName(*year, wxControl::RemoveMnemonics(Caption(caption)));
      year->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent&) { ShowPreview(); });
      years->Add(year, 0, wxRIGHT, FromDIP(kGap));
      Spin_Year.at(at) = year;
    }
    rows->Add(years);
  }

  wxSizer* YearChoices() {
    auto* const all = new wxBoxSizer(wxVERTICAL);
    auto* const rows = new wxFlexGridSizer(2, FromDIP(kGap), FromDIP(kGap));
    AddYears(rows, text::kCopyYears, editor_.Table().BaseYear() + editor_.Year());
    all->Add(rows);
    constexpr std::array captions = {text::kCopyByDate, text::kCopyByHoliday};
    for (std::size_t at = 0; at < Option_Copy.size(); ++at) {
      auto* const option =
          new wxRadioButton(this, wxID_ANY, Caption(captions.at(at)), wxDefaultPosition,
                            wxDefaultSize, at == 0 ? wxRB_GROUP : 0);
      option->SetName("Option_Copy" + std::to_string(at));
      option->Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) { ShowPreview(); });
      all->Add(option, 0, wxTOP, FromDIP(kGap));
      Option_Copy.at(at) = option;
    }
    Option_Copy[1]->SetValue(true);
    return all;
  }

  ImportedDates OfOtherYear() const {
    const YearCopy copy = Option_Copy[0]->GetValue() ? YearCopy::SameDates : YearCopy::Holidays;
    ImportedDates dates = YearDates(editor_.Table(), Spin_Year[0]->GetValue(),
                                    Spin_Year[1]->GetValue(), copy, WindowOf(editor_));
    const auto name = [this](auto& each) {
      each.name = Message(proc_.Text(text::kCopiedFrom), {each.name});
    };
    for (ImportedDate& each : dates.dates) name(each);
    for (SkippedItem& each : dates.skipped) name(each);
    return dates;
  }

  ImportedDates Dates() const {
    if (fromFile_) return *fromFile_;
    if (source_ == DateSource::OtherYear) return OfOtherYear();
    return HolidayDates(Spin_Year[0]->GetValue(), Spin_Year[1]->GetValue(),
                        {TypeIn(*Choice_Group[0], true), TypeIn(*Choice_Group[1], true),
                         TypeIn(*Choice_Group[2], true)},
                        WindowOf(editor_));
  }

  Cells CellsOf(const PreviewLine& line) const {
    const CalendarDate& date = line.date.date;
    const std::string what =
        line.effect == ImportEffect::Conflict
            ? Message(proc_.Text(text::kImportConflict),
                      {editor_.TypeCaption(line.present, proc_.texts)})
            : proc_.Text(line.effect == ImportEffect::Add ? text::kImportAdd
                                                          : text::kImportAlready);
    return {IsoDate(date.year, date.month + 1, date.day),
            editor_.TypeCaption(line.date.type, proc_.texts), what, line.date.name};
  }

  void ShowPreview() {
    const ImportedDates dates = Dates();
    lines_ = PreviewImport(editor_.Table(), dates.dates,
                           Choice_Type == nullptr ? kNoDayType : TypeIn(*Choice_Type, false));
    ticked_.assign(lines_.size(), false);
    std::vector<Cells> rows;
    for (const PreviewLine& line : lines_) rows.push_back(CellsOf(line));
    for (const SkippedItem& item : dates.skipped) {
      rows.push_back({"", "",
                      Message(proc_.Text(text::kImportSkipped), {item.reason.In(proc_.texts)}),
                      item.name});
    }
    List_Dates->Set(InColumns(rows));
    for (std::size_t at = 0; at < lines_.size(); ++at)
      List_Dates->Check(static_cast<unsigned>(at), lines_[at].effect == ImportEffect::Add);
    ShowCount();
  }

  // Only conflicts have a choice.
  void Tick(int at) {
    const auto line = static_cast<std::size_t>(at);
    const bool conflict = line < lines_.size() && lines_[line].effect == ImportEffect::Conflict;
    if (conflict) {
      ticked_[line] = List_Dates->IsChecked(static_cast<unsigned>(at));
    } else {
      List_Dates->Check(static_cast<unsigned>(at),
                        line < lines_.size() && lines_[line].effect == ImportEffect::Add);
    }
    ShowCount();
  }

  void ShowCount() {
    std::size_t count = 0;
    for (std::size_t at = 0; at < lines_.size(); ++at)
      if (lines_[at].effect == ImportEffect::Add || ticked_[at]) ++count;
    result_ = WithImported(editor_.Table(), lines_, ticked_);
    Command_Take->SetLabel(ToWx(Message(proc_.Text(text::kImportTake), {std::to_string(count)})));
    const std::string why = count > 0 || List_Dates->IsEmpty() ? WhyNot() : std::string();
    Command_Take->Enable(count > 0 && why.empty());
    Label_Full->SetLabel(ToWx(why));
    Layout();
  }

  // Why the calendar can't have the dates: none, too many of them, or too many lines; or "".
  std::string WhyNot() const {
    if (List_Dates->IsEmpty()) return proc_.Text(text::kImportNoDates);
    if (!result_)
      return Message(proc_.Text(text::kCalendarFull), {std::to_string(kCalendarEntries)});
    const BuiltLines built = editor_.LinesOf(*result_);
    const auto* const error = std::get_if<BuildError>(&built);
    return error == nullptr ? std::string() : error->MessageIn(proc_.texts);
  }

  void Take() {
    // Enter in a year only enters it, so that its dates are seen first.
    for (const wxSpinCtrl* const year : Spin_Year)
      if (year != nullptr && year->HasFocus()) return List_Dates->SetFocus();
    if (!result_ || !Command_Take->IsEnabled()) return;
    editor_.Replace(*result_);
    changed_ = true;
    EndModal(wxID_OK);
  }

  ZV_Proc& proc_;
  CalendarEditor& editor_;
  DateSource source_;
  std::optional<ImportedDates> fromFile_;
  std::vector<PreviewLine> lines_;
  std::vector<bool> ticked_;
  std::optional<CalendarTable> result_;  // nothing if the calendar would be too full
  bool changed_ = false;
  wxChoice* Choice_Type = nullptr;
  std::array<wxChoice*, 3> Choice_Group{};
  std::array<wxSpinCtrl*, 2> Spin_Year{};
  std::array<wxRadioButton*, 2> Option_Copy{};
  wxCheckListBox* List_Dates = nullptr;
  wxStaticText* Label_Full = nullptr;
  wxButton* Command_Take = nullptr;
};

// Nothing, after a message, if nothing of the file can be imported, or if none was chosen.
std::optional<ImportedDates> FromFile(wxWindow* parent, ZV_Proc& proc,
                                      const CalendarEditor& editor) {
  const std::string path = AskFileToRead(parent, ToWx(proc.Text(text::kImportOpen)),
                                         ToWx(proc.Text(text::kImportFiles)));
  if (path.empty()) return std::nullopt;
  const FileContent file = proc.files.Read(path);
  if (file.error) {
    proc.ToUser().Tell(*file.error);
    return std::nullopt;
  }
  ImportedDates dates = ReadImportFile(file.bytes, WindowOf(editor), [] {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
  });
  if (!dates.refused) return dates;
  proc.prompts.Show(Icon::Exclamation,
                    Windows1252FromUtf8(path) + "\r\n" + dates.refused.In(proc.texts));
  return std::nullopt;
}

}  // namespace

bool ShowImportForm(wxWindow* parent, ZV_Proc& proc, CalendarEditor& editor, DateSource source) {
  const wxWeakRef<wxWindow> parentAlive(parent);
  std::optional<ImportedDates> dates;
  if (source == DateSource::File) {
    dates = FromFile(parent, proc, editor);
    if (!dates || !parentAlive) return false;
  }
  ModalForm<ImportForm> form(parent, proc, editor, source, std::move(dates));
  const auto* const closed = form.Show();
  return closed != nullptr && closed->Changed();
}

}  // namespace zek
