#include "forms/main/ZV_Main.h"

#include <utility>

#include <wx/utils.h>

#include "app/StartSession.h"
#include "forms/ZV_Help.h"
#include "forms/browser/ZV_TSC.h"
#include "forms/main/ZV_Topics.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Windows1252.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {

using namespace main_menu;

namespace {
constexpr int kEnquiry = 5;       // Ctrl+E
constexpr int kPrintEnable = 16;  // Ctrl+P
}  // namespace

ZV_Main::Working::~Working() {
  --form_.working_;
  if (!form_.IsAtRest()) return;
  if (form_.closeRequested_) {
    form_.CallAfter([&form = form_] { form.Close(); });
  } else if (form_.browserRequested_) {
    form_.CallAfter([&form = form_] {
      if (form.browserRequested_) form.OpenBrowser();
    });
  }
}

ZV_Main::ZV_Main(ZV_Proc& proc, WxTurn& turn)
    : wxFrame(nullptr, wxID_ANY, "ZEK View - version " ZEKVIEW_VERSION),
      proc_(proc),
      turn_(turn),
      Timer_Comm([this] { OnTick(); }),
      refresh_([this] { ShowState(); }) {
  BuildMenus();
  BuildToolbar();
  BuildControls();
  BuildAccelerators();
  BindEvents();
  ShowTimesAsBefore();
  RememberPlacement(*this, "ZV_Main");
  if (proc_.settings.AlwaysOnTop) SetTopmost(*this, true);
  if (proc_.status.Connection.empty()) proc_.status.Connection = proc_.Text(text::kNotConnected);
  proc_.status.Changed = [this] { refresh_.Request(); };
  ShowState();
  Timer_Comm.Begin();
  // In batch mode the window may never be painted, so do not wait for the first paint.
  if (proc_.settings.BatchMode) Activate();
}

ZV_Main::~ZV_Main() {
  proc_.status.Changed = [] {};
  if (hourglass_) wxEndBusyCursor();
}

void ZV_Main::BindEvents() {
  const auto onMenu = [this](int id, auto action) {
    Bind(
        wxEVT_MENU, [action](wxCommandEvent&) { action(); }, id);
  };
  onMenu(Menu_Disconnect, [this] { Connect(-1); });
  onMenu(Menu_Debug_Save, [this] { SaveLog(); });
  onMenu(Menu_Debug_Open, [this] { OpenLog(); });
  onMenu(Menu_Debug_Clear, [this] {
    proc_.log.Replace({});
    ShowState();
  });
  onMenu(Menu_Log_Find, [this] { OpenFind(); });
  onMenu(Menu_Log_Next, [this] { FindNext(true); });
  onMenu(Menu_Log_Previous, [this] { FindNext(false); });
  onMenu(Menu_Log_Times, [this] { ShowTimes(menuDebug_->IsChecked(Menu_Log_Times)); });
  onMenu(Menu_Exit, [this] { Close(); });
  onMenu(Menu_TSC, [this] { OpenBrowser(); });
  onMenu(Menu_Topics, [this] { ChangeTopics(ShowTopics); });
  onMenu(Menu_Help, [this] { ShowHelp(this, proc_); });
  onMenu(Menu_Keys, [this] { ShowHelp(this, proc_, kHelpPageKeys); });
  onMenu(Menu_Demo, [this] { TryDemo(); });
  onMenu(Menu_About, [this] { ShowInfo(); });
  Combo_Topics->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
    const int item = event.GetSelection();
    // Deferred: connecting waits, and must not do so inside the control's handler.
    const std::int16_t topic =
        item < 0 ? std::int16_t{-1} : listed_[static_cast<std::size_t>(item)];
    PostWork([this, topic] { Connect(topic); });
  });
  // Ignore the wheel, which would connect to one topic after the other.
  Combo_Topics->Bind(wxEVT_MOUSEWHEEL, [](wxMouseEvent&) {});
  Text_Input->Bind(wxEVT_CHAR, &ZV_Main::OnKey, this);
  Text_Input->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) {
    const wxString typed = Text_Input->GetValue();
    if (!FitsWindows1252(typed.utf8_string())) {
      proc_.prompts.Show(Icon::Information, proc_.Text(text::kCommandUnfit));
      return;
    }
    Send(FromWx(typed), typed);
  });
  List_Output->Chosen = [this](const std::string& line) { OnLogChosen(line); };
  List_Output->Changed = [this] { ShowLogPlace(); };
  Bind(wxEVT_CHAR_HOOK, &ZV_Main::OnCharHook, this);
  Bind(wxEVT_CLOSE_WINDOW, &ZV_Main::OnClose, this);
  Bind(wxEVT_ICONIZE, &ZV_Main::OnIconize, this);
}

// `Show` is not enough: a window can be hidden reliably only after its first paint.
void ZV_Main::OnFirstPaint(wxPaintEvent& event) {
  event.Skip();
  Activate();
}

void ZV_Main::Activate() {
  if (activated_) return;
  activated_ = true;
  CallAfter([this] { FirstActivation(); });  // it waits, which a paint handler must not do
}

// Runs once: loads the topics, handles the start switches and shows the about box. Also does what
// would delay the first frame.
void ZV_Main::FirstActivation() {
  Raise();  // needed without a window manager
  SetIcons(ProgramIcons());
  {
    const Working working(*this);
    LoadTopics(proc_);
    FillTopics();
    Combo_Topics->SetFocus();
    ShowState();
    CheckStartTopic();
    if (StartsWithBrowser()) {
      browserRequested_ = true;
      return;
    }
    if (!proc_.settings.StartDialog.empty()) StartDialog();
    if (closeRequested_) return;
  }
  ShowInfo();
}

void ZV_Main::ShowInfo() {
  if (!info_) info_ = new ZV_Info(this, proc_.texts);
  info_->ShowWithoutActivating();
}

// An unknown name must not open the browser on another plant.
void ZV_Main::CheckStartTopic() {
  std::string& name = proc_.settings.StartTopic;
  if (name.empty() || proc_.topics.Find(name) >= 0) return;
  RefuseTopic(std::exchange(name, {}));
}

void ZV_Main::RefuseTopic(const std::string& name) {
  proc_.prompts.Show(Icon::Information, Message(proc_.Text(text::kInvalidTopic), {name}) +
                                            "\r\n\r\n" +
                                            Message(proc_.Text(text::kTopicNotInFile),
                                                    {Windows1252FromUtf8(proc_.settings.IniPath)}));
}

void ZV_Main::StartDialog() {
  const std::string name = proc_.settings.StartDialog;
  const std::int16_t topic = proc_.topics.Find(name);
  proc_.settings.StartDialog.clear();
  if (topic >= 0) {
    Connect(topic);
  } else {
    RefuseTopic(name);
  }
}

// Posts a handler that may wait. From now on the form is not at rest.
void ZV_Main::PostWork(std::function<void()> work) {
  ++posted_;
  CallAfter([this, work = std::move(work)] {
    const Working working(*this);
    --posted_;
    work();
  });
}

void ZV_Main::OnTick() {
  const Working working(*this);
  if (!commands_.empty() || browserRequested_) EndAnswerWait();
  proc_.Tick();
}

// Stops waiting for the answer to a command that is handed over: something else comes next.
void ZV_Main::EndAnswerWait() {
  if (sending_ && !connecting_ && !proc_.connection.Sending) proc_.countdowns.WaitCountdown = 0;
}

// A held key repeats faster than a controller answers. A handler re-entered while waiting cancels
// that wait and records the new request instead of nesting waits.
void ZV_Main::Connect(std::int16_t topic) {
  const Working working(*this);
  wanted_ = topic;
  if (connecting_) {
    proc_.connection.Disconnect();
    return;
  }
  connecting_ = true;
  while (wanted_ && !closeRequested_) {
    const std::int16_t next = *wanted_;
    wanted_.reset();
    if (next < 0) {
      proc_.connection.Disconnect();
    } else {
      proc_.connection.Connect(next);
    }
  }
  connecting_ = false;
  ShowState();
  if (IsConnected()) Text_Input->SetFocus();
}

void ZV_Main::OnKey(wxKeyEvent& event) {
  if (IsConnected()) proc_.countdowns.IdleCountdown = proc_.settings.DisconnectTicks;
  const int key = event.GetKeyCode();
  if (key == kEnquiry || key == kPrintEnable) {
    Send(std::string(1, static_cast<char>(key)), {});
  } else if (!Recall(key)) {
    event.Skip();
  }
}

// Up and Down bring back what was typed before.
bool ZV_Main::Recall(int key) {
  const bool up = key == WXK_UP || key == WXK_NUMPAD_UP;
  if ((!up && key != WXK_DOWN && key != WXK_NUMPAD_DOWN) || proc_.settings.ViewOnly) return false;
  const std::string typed = FromWx(Text_Input->GetValue());
  Text_Input->ChangeValue(ToWx(up ? history_.Older(typed) : history_.Newer(typed)));
  Text_Input->SetInsertionPointEnd();
  return true;
}

void ZV_Main::Send(const std::string& command, const wxString& typed) {
  if (proc_.settings.ViewOnly) return;
  history_.Add(FromWx(typed));
  commands_.push_back({command, typed});
  if (sending_) {
    EndAnswerWait();
  } else {
    sending_ = true;
    PostWork([this] { SendQueued(); });
  }
}

void ZV_Main::SendQueued() {
  while (!commands_.empty() && !closeRequested_) {
    const Command command = std::move(commands_.front());
    commands_.pop_front();
    const bool sent = proc_.connection.SendCommand(command.text);
    // Keep text that was typed while the answer was pending.
    if (sent && !command.typed.empty() && Text_Input->GetValue() == command.typed) {
      Text_Input->ChangeValue({});
    }
  }
  sending_ = false;
}

void ZV_Main::OnLogChosen(const std::string& line) {
  if (proc_.settings.ViewOnly) return;
  const bool sent = proc_.settings.LogCommands && line.starts_with(ReplyLog::kSentMark);
  Text_Input->ChangeValue(ToWx(sent ? line.substr(ReplyLog::kSentMark.size()) : line));
  if (!Text_Input->IsEnabled()) return;
  Text_Input->SetFocus();
  Text_Input->SetInsertionPointEnd();
}

// The browser's own event loop would keep a wait that began before it from ending, and its
// transfers would meet a command that is still being written. So it opens when the form is at rest.
void ZV_Main::OpenBrowser() {
  if (!IsAtRest()) {
    browserRequested_ = true;
    EndAnswerWait();
    return;
  }
  browserRequested_ = false;
  if (proc_.status.Busy > 0) return;
  RunBrowser();
  ShowState();
}

void ZV_Main::RunBrowser() {
  const Working working(*this);
  const bool hide = proc_.settings.HideDialogOnTSC;
  if (hide) Hide();
  ShowBrowser(hide ? nullptr : this, proc_, turn_);
  browserRequested_ = false;  // pressed again meanwhile
  if (StartsWithBrowser()) closeRequested_ = true;
  if (hide && !closeRequested_) Show();
}

// Lets Escape close the about box, which does not have the focus, or the search.
void ZV_Main::OnCharHook(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const bool isEnter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
  // The about box covers the command line: Enter is meant for it unless something was typed.
  if (info_ && (key == WXK_ESCAPE || (isEnter && Text_Input->IsEmpty()))) {
    info_->Close();
  } else if (key != WXK_ESCAPE || !CloseFind()) {
    event.Skip();
  }
}

void ZV_Main::OnIconize(wxIconizeEvent& event) {
  if (event.IsIconized() && proc_.settings.PreventMinimize) CallAfter([this] { Restore(); });
  event.Skip();
}

void ZV_Main::OnClose(wxCloseEvent& event) {
  if (closed_) return;
  if (working_ == 0 && !HasOpenBox(*this)) {
    Unload();
    return;
  }
  if (event.CanVeto()) event.Veto();
  closeRequested_ = true;
  // Cancels the waits for a connection and for an answer. A transfer is left to finish.
  if (proc_.status.Busy == 0) proc_.connection.Disconnect();
}

void ZV_Main::Unload() {
  closed_ = true;
  proc_.connection.Disconnect();
  Hide();  // nothing else is begun while the tags are closed
  proc_.connection.CloseAllTags();
  proc_.sessionFile.End();
  turn_.Quit();
  Timer_Comm.Stop();
  Destroy();
}

}  // namespace zek
