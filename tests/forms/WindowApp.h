#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "comm/SystemTransports.h"
#include "settings/FileProfile.h"
#include "system/DiskFiles.h"
#include "wxbase/WxLater.h"
#include "wxbase/WxTurn.h"

/// What the window tests share: real windows on the real event loop, with a scripted controller
/// and scripted message boxes. The tests run inside the running loop.
namespace zek::window {

/// Runs events until `condition` holds; false when it does not within ten seconds.
bool PumpUntil(const std::function<bool()>& condition);

/// Runs events for that long, where there is no condition to wait for (simulated keys on their
/// way, something that must not happen).
void Pump(int milliseconds);

/// Calls `action` once as soon as `condition` holds, from inside whatever loop runs then: the way
/// to reach a form that is shown modally.
void When(std::function<bool()> condition, std::function<void()> action);

/// The visible window with that name ("ZV_WDC", "Text_Input"), or null.
wxWindow* Shown(const std::string& name);

/// Chooses a menu item or presses a button of `window`: posts the command event.
void Command(wxWindow& window, wxEventType type, int id);

/// The path of a new, empty directory, "/" at its end; it goes when the tests end.
std::string TemporaryDirectory();

/// A controller in memory. It speaks as a communication server without DUS number does:
/// "<TRANSPARENT>" first, then pieces that end with character 255.
class FakeLink final : public Transport {
 public:
  /// The answer to each command: lines without their end. Any other command stays unanswered.
  std::map<std::string, std::vector<std::string>> answers;
  bool answersOpen = true;        // else a connect waits in vain
  std::vector<std::string> sent;  // the commands, without their carriage return

  /// A reply line that comes at the next turn of the event loop.
  void Say(const std::string& line);
  /// The other side closes the connection, at the next turn.
  void HangUp();

  void Open(const LinkTarget& target) override;
  bool Send(std::string_view bytes) override;
  bool AllSent() const override { return true; }
  void Close() override;
  LinkState State() const override { return state_; }

 private:
  void TakeCommand(const std::string& command);
  void Post(std::function<void()> event);

  LinkState state_ = LinkState::Closed;
  unsigned opened_ = 0;  // events of an earlier connection are dropped
  std::string begun_;    // a command without its end
};

/// Message boxes that answer themselves: questions from `answers`, else with No.
class ScriptedPrompts final : public Prompts {
 public:
  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) override;

  std::deque<bool> answers;
  std::vector<std::string> shown;  // every message and question
};

/// The program's outside world and a session on it, in a directory of its own.
class World {
 public:
  /// `ini` is the text of ZEKView.INI, windows-1252.
  explicit World(std::string_view ini, std::string_view commandLine = {});

  DiskFiles files;
  std::string directory = TemporaryDirectory();
  FileProfile profile{files, directory + "ZEKView.INI"};
  WxTurn turn;
  ScriptedPrompts prompts;
  FakeLink link;
  WxLater later;
  WithoutDde dde{later.Post()};
  WithoutTags tags;
  ZV_Proc proc{Outside{files, profile, turn, prompts, link, dde, tags}};
};

}  // namespace zek::window
