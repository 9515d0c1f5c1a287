// Saves one time control of a shared catalogue after the other, on each kind of controller, cut off
// at any command. No line of another control may be lost for good, nor without a word.

#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "lang/TextNumbers.h"
#include "plant/PlantConversation.h"
#include "support/TestSession.h"
#include "support/Transfers.h"
#include "text/Fields.h"

namespace zek::faults {
namespace {

using Lines = std::vector<std::string>;
constexpr auto kIni = "/ini/ZEKView.INI";
const std::string kRemain = "T" + std::to_string(text::kOwnLinesRemain);

sim::PlantCatalogue CatalogueOf(const Lines& lines) {
  sim::PlantCatalogue catalogue{"KATALOG", {}};
  for (const std::string& line : lines) catalogue.lines[std::stoi(line)] = line;
  return catalogue;
}

sim::Outstation School(sim::Replaces replaces) {
  sim::Outstation school;
  school.replaces = replaces;
  school.weekday =
      CatalogueOf({"  101 MO..FR                   !07:00..16:30 !21    ",
                   "  102 SA                       !07:00..12:00 !19    ",
                   "  201 SD1                      !07:00        !1     ",
                   " 1000 !AHU2        !MO..FR       !07:00..16:30             !21       !17",
                   " 1001 !AHU1        !MO..TH       !07:00..16:30             !21       !17",
                   " 1002 !AHU2        !SA           !07:00..12:00             !19       !17"});
  school.exceptions =
      CatalogueOf({"    1 !AHU2        !24-DEC-26,07:00                        !1        !.",
                   "    2 !AHU1        !24-DEC-26,07:00..26-DEC-26,17:00       !21       !16",
                   "    3 !AHU2        !23-DEC-26,07:00 *                      !1        !.",
                   "    4 !AHU2        !25-DEC-26,07:00                        !1        !.",
                   "  101 !PLT1        !24-DEC-26,07:00                        !1        !.",
                   "  201 !PLT2        !24-DEC-26,07:00                        !1        !."});
  return school;
}

// What goes wrong with the first save.
enum class Fault {
  None,
  LinkLost,  // at a command, for good
  Refused,   // that command and all later ones but "EXIT"
  Declined,  // the question whether to send others' missing lines
};

// What the user does then.
enum class Next { SaveAgain, RestartAndSave, RestartAndOpen, OpenAnother, SaveAnother };

struct Trial {
  sim::Replaces replaces = sim::Replaces::Number;
  Catalogue catalogue = Catalogue::Wdc;
  Lines order = {"AHU1", "AHU2", "PLT1", "PLT2"};
  Fault fault = Fault::None;
  int command = 0;  // of all catalogues that the first save sends
  Next next = Next::SaveAgain;
  bool twice = false;  // the fault also meets what is done next, and that is done again
  bool whole = false;  // the first save is of the whole catalogue, through the object's own node

  std::string Name() const {
    return testing::PrintToString(order) + " replaces " +
           std::to_string(static_cast<int>(replaces)) + ", catalogue " +
           std::to_string(static_cast<int>(catalogue)) + ", fault " +
           std::to_string(static_cast<int>(fault)) + " at " + std::to_string(command) + ", next " +
           std::to_string(static_cast<int>(next)) + (twice ? ", twice" : "") +
           (whole ? ", whole" : "");
  }
};

std::string OwnerOf(const std::string& line) {
  if (line[6] == '!') return std::string(Trim(line.substr(7, 12)));
  return "PLT" + std::to_string(std::stoi(line) / 100);
}

// The lines of a control without those that a save removes, with "*".
Lines LinesOf(const std::string& control, const sim::Outstation& school, Catalogue catalogue) {
  Lines own;
  for (const auto& [number, line] :
       (catalogue == Catalogue::Wdc ? school.weekday : school.exceptions).lines) {
    if (OwnerOf(line) == control && line.find('*') == std::string::npos) own.push_back(line);
  }
  return own;
}

// The lines of `some` that `others` does not have, under any number.
Lines Missing(const Lines& some, const Lines& others) {
  std::set<std::string> texts;
  for (const std::string& line : others) texts.insert(line.substr(6));
  Lines missing;
  for (const std::string& line : some)
    if (!texts.contains(line.substr(6))) missing.push_back(line);
  return missing;
}

Lines WithNewTimes(Lines lines) {
  for (std::string& line : lines) line.replace(line.find(':') - 2, 2, "05");
  return lines;
}

/// A session with the controller behind it. Every question gets a Yes unless the fault is a No.
class SharedSession : private test::TestSession {
 public:
  using Disk = std::map<std::string, std::string>;

  SharedSession(sim::Outstation& school, const Disk& disk) : school_(school) {
    for (const auto& [name, bytes] : disk) files.files[name] = bytes;
    if (disk.empty()) {
      files.files[kIni].insert(0,
                               "[Topics]\r\nX=YES,1,HOST:5100,School\r\n"
                               "[X]\r\nAHU1=A\r\nAHU2=B\r\nPLT1=C\r\nPLT2=D\r\n");
    }
    Load("");
    proc.settings.AlwaysUseDSS = true;
    socket.onConnected = [this] { socket.Say(talk_.emplace(school_).Greeting()); };
    socket.onSent = [this](std::string_view bytes) { Take(bytes); };
  }

  Disk OnDisk() const { return files.files; }

  using TestSession::Select;

  /// Opening and saving meet this fault from now on, at that command of the catalogues they send.
  void Meet(Fault fault, int command = 0) {
    fault_ = fault;
    command_ = command;
    writes_ = 0;
    socket.reachable = true;
    prompts.answers.assign(50, fault != Fault::Declined);
  }

  bool Open(Catalogue catalogue) { return test::Fetch(proc, catalogue).done; }

  /// Returns what was reported. The first question is whether to send.
  bool Save(Catalogue catalogue, const Lines& lines) {
    prompts.answers.front() = true;
    return test::Send(proc, catalogue, lines);
  }

  /// Undoes the last save of the selected control. A line with "*" may remain, which is told.
  bool SendBack(Catalogue catalogue) {
    return proc.catalogues.SendBack(proc.selection.Id(catalogue)).outcome <=
           SaveResult::Outcome::Remarked;
  }

  /// All messages and lists since the last call.
  std::string TakeShown() {
    std::string all;
    for (Lines* const texts : {&prompts.shown, &prompts.details})
      for (const std::string& text : std::exchange(*texts, {})) all += text + "\n";
    return all;
  }

  /// How often the last save sent a catalogue.
  int Writes() const { return writes_; }

 private:
  void Take(std::string_view bytes) {
    const bool begins = bytes.starts_with('.');
    writes_ += begins ? 1 : 0;
    if ((begins || talk_->TakingLines()) && Fails(bytes)) return;
    const std::string reply = talk_->Receive(bytes);
    if (!reply.empty()) socket.Say(reply, 50);
  }

  bool Fails(std::string_view bytes) {
    if (--command_ > 0) return false;
    if (fault_ == Fault::Refused && bytes != "EXIT\r") {
      socket.Say("0001>\x02\r\n\xFF", 50);
      return true;
    }
    if (fault_ != Fault::LinkLost) return false;
    talk_->Receive(bytes);
    socket.reachable = false;
    socket.Break();
    return true;
  }

  sim::Outstation& school_;
  std::optional<sim::PlantConversation> talk_;
  Fault fault_ = Fault::None;
  int command_ = 0;  // until the fault
  int writes_ = 0;
};

/// Gives the controls other times, in their order.
class Saves {
 public:
  explicit Saves(const Trial& trial) : trial_(trial), school_(School(trial.replaces)) {
    for (const std::string& each : trial_.order) wanted_[each] = There(each);
    session_.emplace(school_, SharedSession::Disk());
  }

  /// Returns what went wrong, or "".
  std::string Run() {
    Lines before;  // of the control that was saved last
    for (const std::string& control : trial_.order) {
      before = wanted_[control];
      wanted_[control] = WithNewTimes(wanted_[control]);
      const bool first = control == trial_.order.front();
      shown_.clear();
      Select(control);
      session_->Meet(Fault::None);
      if (!session_->Open(trial_.catalogue)) return "can't open " + control;
      if (first) session_->Meet(trial_.fault, trial_.command);
      const bool saved = Save(control);
      TakeShown();
      std::string wrong;
      if (!saved && first && trial_.fault != Fault::None) wrong = GoOn(control);
      if (wrong.empty()) wrong = WhatChanged(control);
      if (!wrong.empty()) return wrong.append(" in the save of ").append(control);
      if (trial_.fault == Fault::None && !first && session_->Writes() != 1)
        return "more than one write for " + control;
    }
    const bool learned = session_->OnDisk().at(kIni).find("WDCWriteWhole=yes") != std::string::npos;
    const bool loses =
        trial_.replaces == sim::Replaces::Catalogue && trial_.catalogue == Catalogue::Wdc;
    if (trial_.fault != Fault::None) return {};
    return learned == loses ? SendBack(before) : "wrong WDCWriteWhole";
  }

 private:
  bool IsWhole(const std::string& control) const {
    return trial_.whole && control == trial_.order.front();
  }
  void Select(const std::string& control) {
    session_->Select(IsWhole(control) ? "X" : "X/" + control);
  }
  bool Save(const std::string& control) {
    if (!IsWhole(control)) return session_->Save(trial_.catalogue, wanted_[control]);
    Lines all;
    for (const auto& [each, lines] : wanted_) all.insert(all.end(), lines.begin(), lines.end());
    return session_->Save(trial_.catalogue, all);
  }

  std::string SendBack(const Lines& before) {
    session_->Meet(Fault::None);
    const bool done = session_->SendBack(trial_.catalogue);
    wanted_[trial_.order.back()] = before;
    const std::string wrong = done ? WhatChanged(trial_.order.back()) : "can't send back";
    return wrong.empty() ? wrong : wrong + " when it was sent back";
  }

  void TakeShown() { shown_ += session_->TakeShown(); }

  // Returns what went wrong.
  std::string GoOn(const std::string& control) {
    Lines lost = LostBeside(control);
    if (trial_.twice) {
      TryNext(control, trial_.fault);
      const Lines more = LostBeside(control);
      lost.insert(lost.end(), more.begin(), more.end());
    }
    TryNext(control, Fault::None);
    if (trial_.next > Next::RestartAndSave && !LostBeside(control).empty())
      return "others' lines are still missing";
    if (!Missing(wanted_[control], WithNewTimes(There(control))).empty())
      return "neither the old nor the new lines of " + control;
    Select(control);
    Save(control);
    TakeShown();
    // The whole catalogue, sent again, brings them back.
    if (IsWhole(control) && trial_.next <= Next::RestartAndSave) return {};
    for (const std::string& line : lost) {
      const bool own = trial_.next == Next::SaveAnother && OwnerOf(line) == Another();
      if (!own && shown_.find(line) == std::string::npos) return "not named: " + line;
    }
    return {};
  }

  const std::string& Another() const { return trial_.order.back(); }

  void TryNext(const std::string& control, Fault fault) {
    if (trial_.next != Next::SaveAgain) {
      TakeShown();
      session_.emplace(school_, session_->OnDisk());
    }
    const std::string& next = trial_.next >= Next::OpenAnother ? Another() : control;
    Select(next);
    session_->Meet(fault, trial_.command);
    if (trial_.next == Next::RestartAndOpen || trial_.next == Next::OpenAnother) {
      session_->Open(trial_.catalogue);
    } else {
      Save(next);
    }
    session_->Meet(Fault::None);
  }

  // A controller that replaces by number can keep old lines of the control itself.
  std::string WhatChanged(const std::string& control) {
    const Lines lost = LostBeside(control);
    if (!lost.empty()) return "lost: " + lost.front();
    for (auto& [each, lines] : wanted_) {
      const Lines there = There(each);
      if (!Missing(lines, there).empty()) return each + " was not saved";
      const bool told = each == control && shown_.find(kRemain) != std::string::npos;
      if (there.size() != lines.size() && !told) return "untold lines of " + each;
      lines = there;
    }
    return {};
  }

  Lines There(const std::string& control) const {
    return LinesOf(control, school_, trial_.catalogue);
  }

  // The missing lines of the other controls.
  Lines LostBeside(const std::string& control) const {
    Lines lost;
    for (const auto& [each, lines] : wanted_) {
      const Lines missing = each == control ? Lines() : Missing(lines, There(each));
      lost.insert(lost.end(), missing.begin(), missing.end());
    }
    return lost;
  }

  const Trial& trial_;
  sim::Outstation school_;
  std::map<std::string, Lines> wanted_;
  std::optional<SharedSession> session_;
  std::string shown_;  // since the last save began
};

// The trial with every fault at every command that a first save can have.
std::vector<Trial> WithFaults(Trial trial) {
  constexpr int commands = 13;
  std::vector<Trial> trials;
  for (const Next next : {Next::SaveAgain, Next::RestartAndSave, Next::RestartAndOpen,
                          Next::OpenAnother, Next::SaveAnother}) {
    trial.next = next;
    trial.command = 0;
    trial.twice = false;
    trial.fault = Fault::Declined;
    trials.push_back(trial);
    for (trial.command = 1; trial.command <= commands; ++trial.command) {
      for (const Fault fault : {Fault::LinkLost, Fault::Refused}) {
        trial.fault = fault;
        for (const bool twice : {false, true}) {
          trial.twice = twice;
          trials.push_back(trial);
        }
      }
    }
  }
  return trials;
}

// All orders of the controls; the first few also with every fault.
std::vector<Trial> Trials(sim::Replaces replaces, Catalogue catalogue) {
  std::vector<Trial> trials;
  Trial trial{replaces, catalogue};
  do {
    trials.push_back(trial);
    if (!std::is_sorted(trial.order.begin() + 1, trial.order.end())) continue;
    for (const bool whole : {false, true}) {
      trial.whole = whole;
      const std::vector<Trial> more = WithFaults(trial);
      trials.insert(trials.end(), more.begin(), more.end());
    }
    trial.whole = false;
  } while (std::next_permutation(trial.order.begin(), trial.order.end()));
  return trials;
}

using sim::Replaces;

struct Controller {
  const char* name;
  Replaces replaces;
  Catalogue catalogue;
};

// A test each, because under the sanitizers all of them together take minutes.
class SharedSaves : public testing::TestWithParam<Controller> {};

TEST_P(SharedSaves, InEveryOrderAndCutOffAtEveryCommand) {
  const std::vector<Trial> trials = Trials(GetParam().replaces, GetParam().catalogue);
  std::size_t right = 0;
  for (const Trial& trial : trials) {
    const std::string wrong = Saves(trial).Run();
    EXPECT_EQ(wrong, "") << trial.Name();
    right += wrong.empty() ? 1U : 0U;
  }
  std::cout << "figure: saves of shared catalogues, " << GetParam().name << ": " << right << " of "
            << trials.size() << "\n";
}

INSTANTIATE_TEST_SUITE_P(
    Each, SharedSaves,
    testing::Values(Controller{"WeekdaysByNumber", Replaces::Number, Catalogue::Wdc},
                    Controller{"WeekdaysByControl", Replaces::Control, Catalogue::Wdc},
                    Controller{"WeekdaysByCatalogue", Replaces::Catalogue, Catalogue::Wdc},
                    Controller{"ExceptionsByNumber", Replaces::Number, Catalogue::Ovc},
                    Controller{"ExceptionsByControl", Replaces::Control, Catalogue::Ovc},
                    Controller{"ExceptionsByCatalogue", Replaces::Catalogue, Catalogue::Ovc}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace zek::faults
