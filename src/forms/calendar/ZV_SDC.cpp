#include "forms/calendar/ZV_SDC.h"

#include <functional>
#include <vector>

#include <wx/accel.h>
#include <wx/display.h>
#include <wx/weakref.h>

#include "lang/TextNumbers.h"
#include "ui/Forms.h"
#include "ui/Mnemonics.h"
#include "ui/WxText.h"

namespace zek {
namespace {

CalendarDate Today(const LocalTime& now) { return {now.year, now.month - 1, now.day}; }

}  // namespace

ZV_SDC::ZV_SDC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
               CalendarEditor& editor)
    : EditorForm(parent, proc, turn, Catalogue::Sdc, content, {"ZV_SDC", editor.ViewOnly()}),
      editor_(editor) {
  Build();
  BindEvents();
  ShowAll();
  FocusEntry();
}

void ZV_SDC::BindEvents() {
  const auto choose = [](auto& options, const std::function<void(int)>& take) {
    for (std::size_t i = 0; i < options.size(); ++i) {
      options.at(i)->Bind(wxEVT_RADIOBUTTON,
                          [take, i](wxCommandEvent&) { take(static_cast<int>(i)); });
    }
  };
  choose(Option_Year, [this](int year) {
    editor_.ShowYear(year);
    ShowAll();
  });
  choose(Option_Month, [this](int month) {
    editor_.ShowMonth(month);
    ShowAll();
  });
  choose(Option_Day, [this](int type) {
    editor_.ChooseType(type);
    Say({});
    ShowAll();
  });
  const auto step = [this](wxButton* button, int months) {
    button->Bind(wxEVT_BUTTON, [this, months](wxCommandEvent&) {
      editor_.Step(months);
      ShowAll();
    });
  };
  step(Command_Last, -1);
  step(Command_Next, 1);
  Command_Year->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ShowYearView(!yearView_); });
  BuildAccelerators();
}

wxWindow* ZV_SDC::Days() const {
  return yearView_ ? static_cast<wxWindow*>(Picture_Year) : Picture_Days;
}

void ZV_SDC::ShowYearView(bool year) {
  yearView_ = year;
  for (wxSizer* const part : ofMonth_) part->ShowItems(!year);
  Picture_Days->Show(!year);
  Picture_Year->Show(year);
  Command_Year->SetLabel(yearCaptions_.at(year ? 1 : 0));
  hint_->SetLabel(hints_.at(year ? 1 : 0));
  // Grows for the year if the screen has the room, and stays so.
  SetMinSize(wxDefaultSize);
  wxSize size = GetSize();
  size.IncTo(GetSizer()->ComputeFittingWindowSize(this));
  if (!IsMaximized()) SetSize(OntoScreen({GetPosition(), size}, wxDisplay(this).GetClientArea()));
  Layout();
  ShowAll();
  FocusEntry();
}

void ZV_SDC::GoTo(const EntryPlace& place) {
  if (place.date) {
    const DateParts date = DateOf(StartOf(*place.date));
    editor_.ShowDate({date.year, date.month - 1, date.day});
    ShowYearView(false);
  }
  FocusEntry();
}

wxButton* ZV_SDC::NewImport(const std::string& name, int caption, DateSource source) {
  wxButton* const button = NewCommand(wxID_ANY, name, letters_.Give(Caption(caption)), {}, true);
  button->Bind(wxEVT_BUTTON, [this, source](wxCommandEvent&) {
    const wxWeakRef<ZV_SDC> alive(this);
    if (ShowImportForm(this, proc_, editor_, source) && alive) ShowAll();
    if (alive) AfterBox();
  });
  return button;
}

// A frame's letter moves the focus into the frame: to the days or to the chosen option.
void ZV_SDC::BuildAccelerators() {
  std::vector<wxAcceleratorEntry> keys;
  const auto lead = [&](const wxStaticBox* frame, const std::function<wxWindow*()>& target) {
    const int letter = MnemonicOf(frame->GetLabel());
    if (letter == 0) return;
    const int id = wxID_HIGHEST + 1 + static_cast<int>(keys.size());  // not the id of any control
    keys.emplace_back(wxACCEL_ALT, letter, id);
    Bind(
        wxEVT_MENU,
        [target](wxCommandEvent&) {
          if (target()->IsEnabled() && target()->IsShownOnScreen()) target()->SetFocus();
        },
        id);
  };
  const auto place = [](int number) { return static_cast<std::size_t>(number); };
  lead(Frame_SDC, [this] { return Days(); });
  lead(Frame_Day, [=, this] { return Option_Day.at(place(editor_.DayType().value_or(0))); });
  lead(Frame_Year, [=, this] { return Option_Year.at(place(editor_.Year())); });
  lead(Frame_Month, [=, this] { return Option_Month.at(place(editor_.Month())); });
  SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(keys.size()), keys.data()));
}

void ZV_SDC::ShowAll() {
  const auto check = [](auto& options, int number) {
    wxRadioButton& option = *options.at(static_cast<std::size_t>(number));
    if (!option.GetValue()) option.SetValue(true);
  };
  check(Option_Year, editor_.Year());
  check(Option_Month, editor_.Month());
  if (const auto type = editor_.DayType()) check(Option_Day, *type);
  month_->SetLabel(ToWx(editor_.MonthText(proc_.texts)));
  yearView_ ? Picture_Year->ShowDays() : Picture_Days->ShowDays();
  ShowChanges();
}

void ZV_SDC::Undo() {
  if (!editor_.Undo()) return;
  ShowAll();
  FocusEntry();
}

void ZV_SDC::Redo() {
  if (!editor_.Redo()) return;
  ShowAll();
  FocusEntry();
}

void ShowCalendarForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn,
                      const CatalogueContent& content, const std::optional<EntryPlace>& at) {
  const Topic& topic = proc.topics[proc.selection.CurrentObject];
  // Outlives the form, which may be destroyed with its parent during a save.
  CalendarEditor editor(content.lines, proc.selection.Id(Catalogue::Sdc).Owner(),
                        YearsOf(proc.settings, topic.TopicType), Today(proc.now()),
                        proc.settings.ViewOnly ? Access::ViewOnly : Access::Edit);
  editor.CountLost(content.linesDropped);
  editor.NameSpecialDays(ReadSpecialDayNames(proc.profile, topic.TopicName));
  if (proc.settings.SwedishHolidays) editor.MarkSwedishHolidays();
  ShowEditorForm(new ZV_SDC(parent, proc, turn, content, editor), proc, at,
                 [&proc, refused = editor.Refused()] {
                   for (const RefusedDates& each : refused)
                     ShowRefused(each, proc.prompts, proc.texts);
                 });
}

}  // namespace zek
