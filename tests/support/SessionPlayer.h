#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "support/CaseFile.h"
#include "support/TextNames.h"
#include "support/TransferSession.h"
#include "system/Paths.h"
#include "text/Controls.h"

namespace zek::test {

/// A session that is driven by the lines of a case, each a word and what it needs:
///   select ONE/AHU1           a click in the tree
///   ini GetDelay DelayB=5     a setting in ZEKView.INI
///   set LocalMode             a flag of the settings
///   file NAME=TEXT            a file in the program directory, "/" for CR LF
///   answer LIST WDC=HEAD/@500 1000 !x/@600 EXIT/
///                             what the controller says to a command, parts of it after
///                             milliseconds; said once, the last answer always. "@50 !hangup",
///                             "!break" and "!full" (nothing more can be sent) are faults
///   change LIST WDC=...       instead of the answers so far
///   many LIST WDC=203, copy NAME=202   an answer or a file of so many lines
///   yes, no, neither          answers the next question
///   unreachable, silent, heard, full disk, unreadable disk, unreadable NAME, lose NAME, lock NAME,
///   unlock NAME; readable ends "unreadable disk"
///   cancel 500, quit 500      in so many milliseconds
///   line, value               what is to be saved
///   control, copy-name, value-too   of the selected node: its name, its copy, that it has a value
///   before                    what the next write is compared with
///   get WDC, save WDC         a transfer
///   show NAME, time, opened   a file, how long the last transfer took, connections so far
/// Every transfer gives its result, what was shown to the user, and what the controller got.
class SessionPlayer : public TransferSession {
 public:
  SessionPlayer() {
    proc.texts = NamedTexts("");
    socket.onSent = [this](std::string_view bytes) { Answer(bytes); };
  }

  SessionPlayer(const SessionPlayer&) = delete;
  SessionPlayer& operator=(const SessionPlayer&) = delete;
  virtual ~SessionPlayer() = default;

  std::string PlayAll(const std::vector<std::string>& lines) {
    std::string outcome;
    for (const std::string& line : lines) {
      const std::string shown = Play(line);
      if (!shown.empty()) outcome += shown + "\n";
    }
    return outcome;
  }
  std::string Play(const std::string& line) {
    const std::size_t blank = std::min(line.find(' '), line.size());
    return Do(line.substr(0, blank), line.substr(std::min(blank + 1, line.size())));
  }

 protected:
  virtual std::string Do(const std::string& what, const std::string& rest) {
    const std::size_t equals = std::min(rest.find('='), rest.size());
    const std::string name = rest.substr(0, equals);
    const std::string value = rest.substr(std::min(equals + 1, rest.size()));
    if (what == "ini")
      profile.WriteIni(name.substr(0, name.find(' ')), name.substr(name.find(' ') + 1), value);
    if (what == "set") Flag(rest) = true;
    if (what == "file") files.files[OnDisk(name)] = Lined(value);
    if (what == "kept") files.files[WithSeparator("/zek/History") + name] = Lined(value);
    if (what == "change") answers_[name].clear();
    if (what == "answer" || (what == "change" && !value.empty())) answers_[name].push_back(value);
    if (what == "many" || what == "copy") {
      std::string lines;
      for (int number = std::stoi(value); number > 0; --number) lines += "1 !x/";
      if (what == "copy") files.files["/zek/" + name] = Lined(lines);
      answers_[name].push_back(lines + "EXIT/");
    }
    User(what, rest);
    return what == "get" || what == "save" ? Transferred(what, rest) : Looked(what, rest);
  }

 private:
  // What the user and the world do.
  void User(const std::string& what, const std::string& rest) {
    if (what == "select") {
      Select(rest);
      pieces = !rest.starts_with("TWO");
    }
    if (what == "yes" || what == "no") prompts.answers.emplace_back(what == "yes");
    if (what == "neither") prompts.answers.emplace_back(Answer::Cancel);
    if (what == "unreachable") socket.reachable = false;
    if (what == "silent" || what == "heard") socket.silent = what == "silent";
    if (what == "lose") files.files.erase("/zek/" + rest);
    if (what == "lock") files.locked.insert(OnDisk(rest));
    if (what == "unlock") files.locked.erase(OnDisk(rest));
    if (what == "full") files.failWrites = FileError::Reason::Full;
    if (what == "unreadable" && rest != "disk") {
      files.unreadable.insert(OnDisk(rest));
    } else if (what == "unreadable") {
      files.failReads = FileError::Reason::Denied;
    }
    if (what == "readable") files.failReads.reset();
    if (what == "cancel") turn.After(std::stoi(rest), [this] { proc.waits.Cancel(); });
    if (what == "quit") turn.After(std::stoi(rest), [this] { turn.Quit(); });
    if (what == "control") proc.selection.TscName = rest;
    if (what == "value-too") proc.selection.generation = Generation::Zek2;
    if (what == "copy-name") proc.selection.LocalFiles.WDC = rest;
    if (what == "tags") proc.settings.TagMode = true;
    if (what == "line") toSave.push_back(rest);
    if (what == "value") valueToSave_ = rest;
  }

  std::string Looked(const std::string& what, const std::string& rest) {
    if (what == "show") {
      const std::string path = OnDisk(rest);
      return files.files.contains(path) ? Shown(files.files[path]) : "no file";
    }
    if (what == "time") return std::to_string((turn.Now() - start_) / 100 * 100) + " ms";
    if (what == "before") {
      std::string before = std::to_string(static_cast<int>(ReadBefore().from));
      for (const std::string& line : ReadBefore().lines) before += " '" + line + "'";
      return before;
    }
    if (what == "log") {
      std::string log;
      for (const std::string& line : proc.log.Lines()) log += Shown(Filled(line)) + "; ";
      return log;
    }
    if (what == "opened")
      return std::to_string(socket.opened.size() + dde.opened.size()) + " connections";
    return {};
  }

 protected:
  // The path of a file in the program directory or, with "/", in a folder there.
  static std::string OnDisk(const std::string& name) {
    const std::size_t slash = name.find('/');
    if (slash == std::string::npos) return "/zek/" + name;
    return WithSeparator("/zek/" + name.substr(0, slash)) + name.substr(slash + 1);
  }
  static std::string Lined(std::string text) {
    for (std::size_t at = 0; (at = text.find('/', at)) != std::string::npos;)
      text.replace(at, 1, "\r\n");
    return text;
  }
  // With "/" for CR LF and for the system's separator behind a folder.
  static std::string Shown(std::string text) {
    for (const char* const folder : {"/zek/Batch", "/zek/Known", "/zek/Plans"}) {
      const std::string path = WithSeparator(folder);
      for (std::size_t at = 0; (at = text.find(path, at)) != std::string::npos; ++at)
        text.replace(at + path.size() - 1, 1, "/");
    }
    std::erase(text, '\r');
    std::replace(text.begin(), text.end(), '\n', '/');
    ShowControls(text);
    return text;
  }

  std::vector<std::string> toSave;

  void StartTime() { start_ = turn.Now(); }

  std::string Told() {
    std::string told;
    for (const std::string& message : prompts.shown) told += " <" + Shown(Filled(message)) + ">";
    for (const std::string& details : prompts.details) told += " {" + Shown(Filled(details)) + "}";
    prompts.shown.clear();
    prompts.details.clear();
    return told;
  }
  std::string Got() {
    std::string got;
    for (const std::string& command : commands) got += " [" + Shown(command) + "]";
    commands.clear();
    return got;
  }

 private:
  bool& Flag(const std::string& name) {
    return name == "LocalMode"        ? proc.settings.LocalMode
           : name == "AlwaysUseLocal" ? proc.settings.AlwaysUseLocal
                                      : proc.settings.AlwaysUseDSS;
  }

  std::string Transferred(const std::string& what, const std::string& kind) {
    const Catalogue catalogue = kind == "SDC"   ? Catalogue::Sdc
                                : kind == "WDC" ? Catalogue::Wdc
                                                : Catalogue::Ovc;
    StartTime();
    bool done = false;
    std::string shown;
    if (what == "get") {
      done = Get(catalogue);
      if (done && GotLines().size() > 10) {
        shown = " " + std::to_string(GotLines().size()) + " lines, dropped " +
                std::to_string(LinesDropped());
      } else if (done) {
        for (const std::string& line : GotLines()) shown += " '" + line + "'";
        shown += " value " + GotDfv();
      }
    } else {
      done = toSave.empty() && valueToSave_ == "as got" ? SaveWhatWasGot(catalogue)
                                                        : Save(toSave, catalogue, valueToSave_);
    }
    const bool atRest = proc.transfer.Kind == TransferKind::Idle &&
                        proc.connection.CurrentTopic == -1 && proc.status.Busy == 0 &&
                        proc.status.Transfer.empty() && proc.status.Waiting.empty() &&
                        !proc.waits.Stopped();
    return (done ? "true" : "false") + shown + Told() + Got() + (atRest ? "" : " not at rest");
  }

  void Answer(std::string_view bytes) {
    std::string command(bytes);
    if (command.ends_with('\r')) command.pop_back();
    commands.push_back(command);
    auto& left = answers_[command];
    if (left.empty()) return;
    const std::string answer = left.front();
    if (left.size() > 1) left.erase(left.begin());
    int milliseconds = 50;
    for (std::size_t at = 0; at < answer.size();) {
      std::size_t end = std::min(answer.find('@', at), answer.size());
      if (end > at) Say(answer.substr(at, end - at), milliseconds);
      if (end == answer.size()) return;
      milliseconds = std::stoi(answer.substr(end + 1));
      at = answer.find(' ', end) + 1;
    }
  }
  void Say(const std::string& part, int milliseconds) {
    if (part == "!hangup") return socket.HangUp(milliseconds);
    if (part == "!break") return socket.Break(milliseconds);
    if (part == "!full") {
      socket.takesBytes = false;
      return;
    }
    Reply(Lined(part), milliseconds);
  }

  std::map<std::string, std::vector<std::string>> answers_;
  std::string valueToSave_ = ".";
  std::int64_t start_ = 0;
};

}  // namespace zek::test
