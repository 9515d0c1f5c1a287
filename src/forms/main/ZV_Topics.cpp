#include "forms/main/ZV_Topics.h"

#include <optional>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include "app/TopicList.h"
#include "forms/ZV_Help.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Windows1252.h"
#include "ui/AccessibleName.h"
#include "ui/Forms.h"
#include "ui/InputBlock.h"
#include "ui/ModalForm.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 8;
constexpr int kBoxWidth = 320;
constexpr int kListWidth = 420;
constexpr int kListHeight = 220;

/// `ZV_Topic`: one controller. Its name can't be changed later: the section with its time controls
/// has that name.
class TopicForm final : public wxDialog {
 public:
  TopicForm(wxWindow* parent, ZV_Proc& proc, const std::optional<TopicEntry>& before)
      : wxDialog(parent, wxID_ANY, ToWx(proc.Text(text::kTopicTitle))), proc_(proc) {
    SetName("ZV_Topic");
    SetIcons(ProgramIcons());
    Build();
    isNew_ = !before;
    if (before) {
      Text_Name->ChangeValue(ToWx(before->name));
      Text_Name->SetEditable(false);
      Choice_Type->SetSelection(before->type == Generation::Zek2 ? 1 : 0);
      Text_Address->ChangeValue(ToWx(before->address));
      Text_Dus->ChangeValue(ToWx(before->dus));
      Text_Description->ChangeValue(ToWx(before->description));
    }
    CenterForm(*this);
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    HelpOnF1(*this, proc, kHelpPageTopic);
    // Without a window manager the program itself must activate the window.
    CallAfter([this] {
      Raise();
      (isNew_ ? Text_Name : Text_Address)->SetFocus();
    });
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { OnOk(); }, wxID_OK);
    Command_Test->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnTest(); });
  }

 private:
  void Build() {
    const int gap = FromDIP(kGap);
    auto* const rows = new wxFlexGridSizer(2, gap, gap);
    rows->AddGrowableCol(1);
    const auto add = [&](std::int32_t number, wxWindow* control, const char* name) {
      control->SetName(name);
      SetAccessibleName(*control, wxControl::RemoveMnemonics(ToWx(proc_.Text(number))));
      rows->Add(control, 1, wxEXPAND);
    };
    const auto label = [&](std::int32_t number) {
      rows->Add(new wxStaticText(this, wxID_ANY, ToWx(proc_.Text(number))), 0,
                wxALIGN_CENTER_VERTICAL);
    };
    const auto box = [&](std::int32_t number, const char* name) {
      label(number);
      auto* const made =
          new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, FromDIP(wxSize(kBoxWidth, -1)));
      add(number, made, name);
      return made;
    };
    Text_Name = box(text::kTopicName, "Text_Name");
    label(text::kTopicType);
    Choice_Type = new wxChoice(this, wxID_ANY);
    Choice_Type->Append("ZEK1");
    Choice_Type->Append("ZEK2");
    Choice_Type->SetSelection(0);
    add(text::kTopicType, Choice_Type, "Choice_Type");
    Text_Address = box(text::kTopicAddress, "Text_Address");
    rows->AddSpacer(0);
    auto* const hint = new wxStaticText(this, wxID_ANY, ToWx(proc_.Text(text::kTopicAddressHint)));
    hint->Wrap(FromDIP(kBoxWidth));
    rows->Add(hint);
    Text_Dus = box(text::kTopicDus, "Text_Dus");
    Text_Description = box(text::kTopicDescription, "Text_Description");

    auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
    Command_Test = new wxButton(this, wxID_ANY, ToWx(proc_.Text(text::kTopicTest)));
    Command_Test->SetName("Command_Test");
    Command_Test->Enable(!proc_.settings.LocalMode);
    buttons->Add(Command_Test);
    buttons->AddStretchSpacer();
    auto* const ok = new wxButton(this, wxID_OK);
    ok->SetDefault();
    buttons->Add(ok, 0, wxLEFT, gap);
    buttons->Add(new wxButton(this, wxID_CANCEL, ToWx(proc_.Text(text::kCalendarCancel))), 0,
                 wxLEFT, gap);

    // Two lines high, so that the form need not grow.
    Label_State = new wxStaticText(this, wxID_ANY, "\n", wxDefaultPosition, wxDefaultSize,
                                   wxST_NO_AUTORESIZE);
    Label_State->SetName("Label_State");
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(rows, 1, wxEXPAND | wxALL, gap);
    whole->Add(Label_State, 0, wxEXPAND | wxLEFT | wxRIGHT, gap);
    whole->Add(buttons, 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(whole);
  }

  void Tell(const wxString& what) {
    Label_State->SetLabel(what);
    Label_State->Wrap(Label_State->GetSize().x);
  }

  static std::string TextOf(const wxTextCtrl& box) {
    return std::string(Trim(FromWx(box.GetValue())));
  }

  // What is entered, or nothing, after it was told what is wrong.
  std::optional<TopicEntry> Entered() {
    const TopicEntry entry{TextOf(*Text_Name),
                           Choice_Type->GetSelection() == 1 ? Generation::Zek2 : Generation::Zek1,
                           TextOf(*Text_Address), TextOf(*Text_Dus), TextOf(*Text_Description)};
    // A name of the file is not judged: it can't be changed.
    TopicEntry judged = entry;
    if (!isNew_) judged.name = "A";
    std::optional<std::int32_t> wrong = Complaint(judged);
    if (!FitsWindows1252(Text_Description->GetValue().utf8_string()))
      wrong = text::kTopicBadDescription;
    wxString message;
    if (wrong) message = ToWx(proc_.Text(*wrong));
    if (!wrong && isNew_ && proc_.topics.Find(entry.name) >= 0)
      message = ToWx(Message(proc_.Text(text::kTopicNameTaken), {entry.name}));
    Tell(message);
    if (message.empty()) return entry;
    wxBell();
    return std::nullopt;
  }

  void OnOk() {
    if (busy_) return;
    const std::optional<TopicEntry> entry = Entered();
    const wxWeakRef<TopicForm> alive(this);
    if (entry && SaveTopic(proc_, *entry) && alive) EndModal(wxID_OK);
  }

  void OnTest() {
    const std::optional<TopicEntry> entry = busy_ ? std::nullopt : Entered();
    if (!entry) return;
    const wxWeakRef<TopicForm> alive(this);
    busy_ = true;
    Tell(ToWx(proc_.Text(text::kTopicTesting)));
    Contact contact = Contact::None;
    {
      const InputBlock block([this] { proc_.waits.Cancel(); });
      contact = TestTopic(proc_, *entry);
    }
    if (!alive) return;
    busy_ = false;
    Tell(ToWx(proc_.Text(contact == Contact::Answers   ? text::kTopicAnswers
                         : contact == Contact::Silent  ? text::kTopicSilent
                         : contact == Contact::Stopped ? text::kTopicTestStopped
                                                       : text::kTopicNoContact)));
  }

  ZV_Proc& proc_;
  bool isNew_ = true;
  bool busy_ = false;
  wxTextCtrl* Text_Name = nullptr;
  wxChoice* Choice_Type = nullptr;
  wxTextCtrl* Text_Address = nullptr;
  wxTextCtrl* Text_Dus = nullptr;
  wxTextCtrl* Text_Description = nullptr;
  wxButton* Command_Test = nullptr;
  wxStaticText* Label_State = nullptr;
};

void AskTopic(wxWindow* parent, ZV_Proc& proc, const std::optional<TopicEntry>& before) {
  ModalForm<TopicForm>(parent, proc, before).Show();
}

/// `ZV_Topics`: the controllers of the settings file.
class TopicsForm final : public wxDialog {
 public:
  TopicsForm(wxWindow* parent, ZV_Proc& proc)
      : wxDialog(parent, wxID_ANY, ToWx(proc.Text(text::kTopicsTitle)), wxDefaultPosition,
                 wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
        proc_(proc) {
    SetName("ZV_Topics");
    SetIcons(ProgramIcons());
    Build();
    CenterForm(*this);
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    HelpOnF1(*this, proc, kHelpPageTopic);
    ShowNames(0);
    List_Topics->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { Change(); });
    CallAfter([this] {
      Raise();
      List_Topics->SetFocus();
    });
  }

 private:
  void Build() {
    const int gap = FromDIP(kGap);
    List_Topics = new wxListBox(this, wxID_ANY, wxDefaultPosition,
                                FromDIP(wxSize(kListWidth, kListHeight)), 0, nullptr, wxLB_HSCROLL);
    List_Topics->SetName("List_Topics");
    SetAccessibleName(*List_Topics, ToWx(proc_.Text(text::kTopicsTitle)));
    auto* const buttons = new wxBoxSizer(wxVERTICAL);
    const auto add = [&](std::int32_t number, const char* name, auto action) {
      auto* const button = new wxButton(this, wxID_ANY, ToWx(proc_.Text(number)));
      button->SetName(name);
      button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
      buttons->Add(button, 0, wxEXPAND | wxBOTTOM, gap);
      return button;
    };
    add(text::kAddTopic, "Command_Add", [this] { Ask(std::nullopt); });
    change_ = add(text::kChangeTopic, "Command_Change", [this] { Change(); });
    remove_ = add(text::kRemoveTopic, "Command_Remove", [this] { Remove(); });
    buttons->AddStretchSpacer();
    buttons->Add(new wxButton(this, wxID_CANCEL, ToWx(proc_.Text(text::kBrowserClose))), 0,
                 wxEXPAND);
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(List_Topics, 1, wxEXPAND | wxALL, gap);
    row->Add(buttons, 0, wxEXPAND | wxTOP | wxRIGHT | wxBOTTOM, gap);
    SetSizerAndFit(row);
  }

  void ShowNames(int selected) {
    List_Topics->Clear();
    for (std::int16_t index = 0; index < proc_.topics.TopicCount(); ++index)
      List_Topics->Append(ToWx(TopicText(proc_.topics[index])));
    const int count = static_cast<int>(List_Topics->GetCount());
    if (count > 0) List_Topics->SetSelection(std::min(selected, count - 1));
    change_->Enable(count > 0);
    remove_->Enable(count > 0);
  }

  const Topic* Selected() const {
    const int item = List_Topics->GetSelection();
    return item == wxNOT_FOUND ? nullptr : &proc_.topics[static_cast<std::int16_t>(item)];
  }

  void Change() {
    if (const Topic* const topic = Selected()) Ask(EntryOf(*topic));
  }

  void Ask(const std::optional<TopicEntry>& before) {
    const int selected =
        before ? List_Topics->GetSelection() : static_cast<int>(List_Topics->GetCount());
    const wxWeakRef<TopicsForm> alive(this);
    AskTopic(this, proc_, before);
    if (alive) ShowNames(selected);
  }

  void Remove() {
    const Topic* const topic = Selected();
    if (topic == nullptr) return;
    const int selected = List_Topics->GetSelection();
    const std::string name = topic->TopicName;
    const wxWeakRef<TopicsForm> alive(this);
    if (!proc_.prompts.AskYesNo(Icon::Question,
                                Message(proc_.Text(text::kAskRemoveTopic), {TopicText(*topic)}),
                                proc_.Text(text::kTopicsTitle)))
      return;
    RemoveTopic(proc_, name);
    if (alive) ShowNames(selected);
  }

  ZV_Proc& proc_;
  wxListBox* List_Topics = nullptr;
  wxButton* change_ = nullptr;
  wxButton* remove_ = nullptr;
};

}  // namespace

void ShowTopics(wxWindow* parent, ZV_Proc& proc) { ModalForm<TopicsForm>(parent, proc).Show(); }

void AddTopic(wxWindow* parent, ZV_Proc& proc) { AskTopic(parent, proc, std::nullopt); }

}  // namespace zek
