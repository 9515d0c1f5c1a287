#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include "app/ZV_Proc.h"
#include "forms/main/CommandHistory.h"
#include "forms/main/ZV_Info.h"
#include "forms/main/ZV_MainLog.h"
#include "ui/Forms.h"
#include "wxbase/WxTurn.h"

namespace zek {

class LogFindBar;

/// The ids of the main window's menu items; some are also on the tool bar.
namespace main_menu {
enum Menu : int {
  Menu_Exit = wxID_EXIT,
  Menu_Disconnect = wxID_HIGHEST + 1,
  Menu_Debug_Save,
  Menu_Debug_Open,
  Menu_Debug_Clear,
  Menu_Log_Find,
  Menu_Log_Next,
  Menu_Log_Previous,
  Menu_Log_Times,
  Menu_TSC,
  Menu_Topics,
  Menu_Help,
  Menu_Keys,
  Menu_Demo,
  Menu_About,
};
}  // namespace main_menu

/// `ZV_Main`, the main window: a terminal for the connected controller, with a log of its replies.
/// Closing it disconnects and ends the program.
///
/// Its handlers run waits, and waits run the event loop. A handler re-entered during a wait records
/// its request for the running one. The browser opens, and the window closes, once all handlers
/// have returned.
class ZV_Main final : public wxFrame {
 public:
  ZV_Main(ZV_Proc& proc, WxTurn& turn);
  ~ZV_Main() override;

  /// Asks for the file to save the log in, or for a saved log to open. Returns its path in UTF-8,
  /// or "" if the user cancels. Tests replace it.
  std::function<std::string(bool save)> AskFile = [this](bool save) { return AskLogFile(save); };

 private:
  // Exists while a handler that may wait is running. When the last handler returns, a pending
  // request to close or to open the browser is carried out. So no window is destroyed while a wait
  // that began in it is running, and the browser finds the connection at rest.
  class Working {
   public:
    explicit Working(ZV_Main& form) : form_(form) { ++form_.working_; }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;
    ~Working();

   private:
    ZV_Main& form_;
  };

  void BuildMenus();
  void BuildToolbar();
  void BuildControls();
  void BuildAccelerators();
  void BindEvents();
  void OnFirstPaint(wxPaintEvent& event);
  void Activate();
  void FirstActivation();
  void FillTopics();
  wxWindow* NewWelcome();
  void ShowWelcome();
  void ChangeTopics(void (*change)(wxWindow*, ZV_Proc&));
  void TryDemo();
  void ShowInfo();
  bool Recall(int key);

  void ShowState();
  void ShowStatusBar();
  void ShowTopic();
  void ShowPointer();
  void EnableParts();

  void PostWork(std::function<void()> work);
  bool IsAtRest() const { return working_ == 0 && posted_ == 0; }
  void OnTick();
  void OnKey(wxKeyEvent& event);
  void OnCharHook(wxKeyEvent& event);
  void OnClose(wxCloseEvent& event);
  void OnIconize(wxIconizeEvent& event);
  void OnLogChosen(const std::string& line);
  void Connect(std::int16_t topic);
  void Send(const std::string& command, const wxString& typed);
  void SendQueued();
  void EndAnswerWait();
  void OpenBrowser();
  void RunBrowser();
  std::string AskLogFile(bool save);
  void ShowTimesAsBefore();
  void ShowTimes(bool on);
  void OpenFind();
  bool CloseFind();
  void FindNext(bool forward);
  void FocusBesideLog();
  void ShowLogPlace();
  void SaveLog();
  void OpenLog();
  void CheckStartTopic();
  void RefuseTopic(const std::string& name);
  void StartDialog();
  void Unload();

  // The browser opens at once, and the program ends when it closes.
  bool StartsWithBrowser() const {
    return !proc_.settings.StartTopic.empty() || proc_.settings.BatchMode;
  }
  bool IsConnected() const { return proc_.connection.CurrentTopic >= 0; }
  wxString Label(std::int32_t number, const char* key = "") const;

  struct Command {
    std::string text;
    wxString typed;  // cleared from `Text_Input` once sent; "" = nothing to clear
  };

  ZV_Proc& proc_;
  WxTurn& turn_;
  wxMenu* menuFile_ = nullptr;
  wxMenu* menuDebug_ = nullptr;
  wxChoice* Combo_Topics = nullptr;
  LogList* List_Output = nullptr;
  wxTextCtrl* Text_Input = nullptr;
  wxSizer* findPlace_ = nullptr;      // below the log
  LogFindBar* find_ = nullptr;        // once it was opened
  wxButton* Command_ToEnd = nullptr;  // once the log was scrolled back
  wxWindow* welcome_ = nullptr;       // what to do, while there are no topics
  wxWeakRef<ZV_Info> info_;
  WxTick Timer_Comm;
  FrameRefresh refresh_;

  std::deque<std::int16_t> listed_;     // the topics of `Combo_Topics`, in the same order
  std::optional<std::int16_t> wanted_;  // the topic to connect next; -1 = disconnect
  std::deque<Command> commands_;        // entered and not sent yet
  CommandHistory history_;
  bool connecting_ = false;
  bool sending_ = false;
  bool hourglass_ = false;
  int working_ = 0;  // number of nested handlers that are running
  int posted_ = 0;   // number of handlers that are posted and not running yet
  bool browserRequested_ = false;
  bool activated_ = false;
  bool closeRequested_ = false;
  bool closed_ = false;
};

}  // namespace zek
