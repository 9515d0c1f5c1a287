#include "forms/weekday/ZV_CopyDays.h"

#include <array>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>

#include "forms/ZV_Help.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "ui/FormDialog.h"
#include "ui/Forms.h"
#include "ui/Mnemonics.h"
#include "ui/ModalForm.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 8;
constexpr int kCancel = text::kWeekdayCaption + 10;
constexpr std::array kCaptions{text::kCopyRowAdd, text::kCopyDayAdd, text::kCopyDayReplace};

class CopyDaysForm final : public FormDialog {
 public:
  CopyDaysForm(wxWindow* parent, ZV_Proc& proc, const CopySource& from,
               const std::function<std::string(std::size_t)>& nameOf)
      : FormDialog(parent, wxID_ANY, ToWx(Message(proc.Text(text::kCopyDaysTitle), {from.name})),
                   wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE, "ZV_CopyDays"),
        proc_(proc) {
    SetIcons(ProgramIcons());
    const int gap = FromDIP(kGap);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(Whats(from), 0, wxALL, gap);
    whole->Add(Days(from, nameOf), 0, wxEXPAND | wxLEFT | wxRIGHT, gap);
    whole->Add(Commands(), 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(whole);
    CenterForm(*this);
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    HelpOnF1(*this, proc, kHelpPageCopy);
    Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { Command_Copy->Enable(To().any()); });
    // Without a window manager the program itself must activate the window.
    CallAfter([this, first = from.day == 0 ? 1 : 0] {
      Raise();
      Check_Day.at(static_cast<std::size_t>(first))->SetFocus();
    });
  }

  CopyChoice Chosen() const {
    std::size_t what = 0;
    while (!Option_What.at(what)->GetValue()) ++what;
    return {static_cast<DayCopy>(what), To()};
  }

 private:
  wxString Caption(std::int32_t number) { return letters_.Give(ToWx(proc_.Text(number))); }

  DaySet To() const {
    DaySet to;
    for (std::size_t day = 0; day < kWeekdayDays; ++day) to.set(day, Check_Day.at(day)->GetValue());
    return to;
  }

  wxSizer* Whats(const CopySource& from) {
    auto* const options = new wxBoxSizer(wxVERTICAL);
    for (std::size_t what = 0; what < kCaptions.size(); ++what) {
      auto*& option = Option_What.at(what);
      option = new wxRadioButton(this, wxID_ANY, Caption(kCaptions.at(what)), wxDefaultPosition,
                                 wxDefaultSize, what == 0 ? wxRB_GROUP : 0);
      option->SetName("Option_What" + std::to_string(what));
      options->Add(option, 0, wxBOTTOM, FromDIP(kGap) / 2);
    }
    Option_What.at(from.hasRow ? 0 : 1)->SetValue(true);
    Option_What[0]->Enable(from.hasRow);
    return options;
  }

  wxSizer* Days(const CopySource& from, const std::function<std::string(std::size_t)>& nameOf) {
    auto* const frame = new wxStaticBox(this, wxID_ANY, ToWx(proc_.Text(text::kCopyTo)));
    auto* const columns = new wxStaticBoxSizer(frame, wxHORIZONTAL);
    for (std::size_t type = 0; type < kWeekdayDays / kDaysOfType; ++type) {
      auto* const column = new wxBoxSizer(wxVERTICAL);
      for (std::size_t day = type * kDaysOfType; day < (type + 1) * kDaysOfType; ++day) {
        auto*& box = Check_Day.at(day);
        box = new wxCheckBox(frame, wxID_ANY, letters_.Give(ToWx(nameOf(day))));
        box->SetName("Check_Day" + std::to_string(day));
        box->Enable(day != from.day);
        column->Add(box, 0, wxBOTTOM, FromDIP(kGap) / 2);
      }
      columns->Add(column, 1, wxALL, FromDIP(kGap));
    }
    return columns;
  }

  wxSizer* Commands() {
    auto* const commands = new wxBoxSizer(wxHORIZONTAL);
    Command_Copy = new wxButton(this, wxID_OK, Caption(text::kCopyDo));
    Command_Copy->SetName("Command_CopyDays");
    Command_Copy->SetDefault();
    Command_Copy->Disable();
    commands->AddStretchSpacer();
    commands->Add(Command_Copy, 0, wxRIGHT, FromDIP(kGap));
    commands->Add(new wxButton(this, wxID_CANCEL, Caption(kCancel)));
    return commands;
  }

  ZV_Proc& proc_;
  Mnemonics letters_;
  std::array<wxRadioButton*, kCaptions.size()> Option_What{};
  std::array<wxCheckBox*, kWeekdayDays> Check_Day{};
  wxButton* Command_Copy = nullptr;
};

}  // namespace

std::optional<CopyChoice> AskCopyDays(wxWindow* parent, ZV_Proc& proc, const CopySource& from,
                                      const std::function<std::string(std::size_t)>& nameOf) {
  ModalForm<CopyDaysForm> form(parent, proc, from, nameOf);
  const auto* const closed = form.Show();
  if (closed == nullptr || closed->GetReturnCode() != wxID_OK) return std::nullopt;
  return closed->Chosen();
}

}  // namespace zek
