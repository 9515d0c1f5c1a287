// Saves one time control of a shared catalogue after the other, on each kind of controller, cut off
// at any command. No line of another control may be lost.

#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "plant/PlantConversation.h"
#include "support/TestSession.h"
#include "support/Transfers.h"
#include "text/Fields.h"

namespace zek::faults {
namespace {

using Lines = std::vector<std::string>;

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

struct Trial {
  sim::Replaces replaces = sim::Replaces::Number;
  Catalogue catalogue = Catalogue::Wdc;
  Lines order = {"AHU1", "AHU2", "PLT1", "PLT2"};
  int cutAfter = 0;      // commands of the first catalogue that is sent; 0: no cut
  bool restart = false;  // after the cut, else a retry
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

// The same as a set, without line numbers.
Lines Texts(Lines lines) {
  for (std::string& line : lines) line = Trim(line.substr(6));
  std::sort(lines.begin(), lines.end());
  return lines;
}

/// A session with the controller behind it. Every question gets a Yes.
class SharedSession : private test::TestSession {
 public:
  using Disk = std::map<std::string, std::string>;

  SharedSession(sim::Outstation& school, const Disk& disk) : school_(school) {
    for (const auto& [name, bytes] : disk) files.files[name] = bytes;
    files.files["/ini/ZEKView.INI"].insert(0,
                                           "[Topics]\r\nX=YES,1,HOST:5100,School\r\n"
                                           "[X]\r\nAHU1=A\r\nAHU2=B\r\nPLT1=C\r\nPLT2=D\r\n");
    Load("");
    proc.settings.AlwaysUseDSS = true;
    socket.onConnected = [this] { socket.Say(talk_.emplace(school_).Greeting()); };
    socket.onSent = [this](std::string_view bytes) { Take(bytes); };
  }

  const Disk& OnDisk() const { return files.files; }

  /// Saves lines of a control after a read, as its editor does. The link breaks for good after
  /// `cutAfter` commands of the catalogue. Returns what was reported.
  bool Save(const Trial& trial, const std::string& control, const Lines& lines, int cutAfter = 0) {
    Select("X/" + control);
    prompts.answers.assign(50, true);
    if (!test::Fetch(proc, trial.catalogue).done) return false;
    cutAfter_ = cutAfter;
    const bool saved = test::Send(proc, trial.catalogue, lines);
    socket.reachable = true;
    return saved;
  }

 private:
  void Take(std::string_view bytes) {
    const bool before = talk_->TakingLines();
    const std::string reply = talk_->Receive(bytes);
    const bool counts = (before || talk_->TakingLines()) && bytes.ends_with('\r');
    if (counts && cutAfter_ > 0 && --cutAfter_ == 0) {
      socket.reachable = false;
      socket.Break();
    } else if (!reply.empty()) {
      socket.Say(reply, 50);
    }
  }

  sim::Outstation& school_;
  std::optional<sim::PlantConversation> talk_;
  int cutAfter_ = 0;
};

// Of the saved control old lines may remain in a controller that adds by number.
bool Holds(const Trial& trial, bool saved, const Lines& there, const Lines& wanted) {
  const bool mayRemain = saved && trial.replaces == sim::Replaces::Number;
  return mayRemain ? std::includes(there.begin(), there.end(), wanted.begin(), wanted.end())
                   : there == wanted;
}

// Gives the controls other times, in their order. Returns what went wrong, or "".
std::string WhatChanged(const Trial& trial) {
  sim::Outstation school = School(trial.replaces);
  std::map<std::string, Lines> wanted;
  for (const std::string& each : trial.order) wanted[each] = LinesOf(each, school, trial.catalogue);
  std::optional<SharedSession> session;
  session.emplace(school, SharedSession::Disk());
  int cutAfter = trial.cutAfter;
  for (const std::string& control : trial.order) {
    for (std::string& line : wanted[control]) line.replace(line.find(':') - 2, 2, "05");
    const int cut = std::exchange(cutAfter, 0);
    if (!session->Save(trial, control, wanted[control], cut) && cut > 0) {
      if (trial.restart) session.emplace(school, SharedSession::Disk(session->OnDisk()));
      session->Save(trial, control, wanted[control]);
    }
    for (auto& [each, lines] : wanted) {
      const Lines there = LinesOf(each, school, trial.catalogue);
      if (!Holds(trial, each == control, Texts(there), Texts(lines))) {
        return std::string("saving ").append(control).append(" changed ").append(each);
      }
      lines = there;
    }
  }
  return {};
}

// Disabled until a save fetches the shared catalogue first.
TEST(SharedSaves, DISABLED_InEveryOrderAndCutOffAtEveryCommand) {
  constexpr int commands = 10;  // more than a save of a whole catalogue has
  int run = 0;
  int right = 0;
  const auto check = [&](const Trial& trial) {
    const std::string wrong = WhatChanged(trial);
    EXPECT_EQ(wrong, "") << "replaces " << static_cast<int>(trial.replaces) << ", cut after "
                         << trial.cutAfter << (trial.restart ? ", restart" : "");
    ++run;
    right += wrong.empty() ? 1 : 0;
  };
  using sim::Replaces;
  for (const Replaces replaces : {Replaces::Number, Replaces::Control, Replaces::Catalogue}) {
    for (const Catalogue catalogue : {Catalogue::Wdc, Catalogue::Ovc}) {
      Trial trial{replaces, catalogue};
      do {
        check(trial);
        if (!std::is_sorted(trial.order.begin() + 1, trial.order.end())) continue;
        for (int command = 2; command < 2 * commands; ++command) {
          Trial cut = trial;
          cut.cutAfter = command / 2;
          cut.restart = command % 2 == 1;
          check(cut);
        }
      } while (std::next_permutation(trial.order.begin(), trial.order.end()));
    }
  }
  std::cout << "figure: saves of shared catalogues: " << right << " of " << run << "\n";
}

}  // namespace
}  // namespace zek::faults
