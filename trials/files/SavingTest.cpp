// Every step of the program that writes a file, with every fault at each of its file calls. The
// result must be the old file or the new one, never a partial one, and a failure is reported.

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <unistd.h>

#include "app/StartSession.h"
#include "files/Child.h"
#include "files/DiskProgram.h"
#include "files/Tree.h"
#include "lang/Messages.h"
#include "support/TemporaryFolder.h"
#include "system/BesideName.h"

namespace zek {
namespace {

using test::CallFault;
using test::FileCall;
using test::Outcome;
using test::Tree;
using Kind = CallFault::Kind;

constexpr const char* kIni =
    "[General]\r\nLanguage=046\r\nDisconnectTime=60\r\nGetTSCTimeout=5\r\nAlwaysUseDSS=yes\r\n"
    "SDCLastTwoDigitYear=93\r\n"
    "[GetDelay]\r\nDelayA=0\r\nDelayB=0\r\nDelayD=0\r\n"
    "[Topics]\r\nONE=YES,1,127.0.0.1:5100,First\r\nTWO=YES,2,127.0.0.1:5100:3,Second\r\n"
    "[ONE]\r\nAHU1=Plant 1/DUC 1/Heating\r\n[TWO]\r\nTSC1=Plant 2/DUC 3/Air\r\n";
constexpr const char* kException = "1     24-DEC-2026..26-DEC-2026 !08:00..17:00 !21    !16\r\n";
constexpr const char* kOne = "f127_0_0_1_5100 First ";
constexpr const char* kTwo = "f127_0_0_1_5100_3 Second ";

std::string Weekday(const std::string& control, const std::string& times) {
  return " 1000 !" + control + "        !MO..FR       !" + times +
         "             !21        !17         \r\n";
}

Tree Home() {
  const std::string one = kOne;
  const std::string two = kTwo;
  return {{"ZEKView.INI", kIni},
          {"zek_lang.044", "0=English\r\n10=File\r\n"},
          {"zek_lang.046", "0=Svenska\r\n10=Arkiv\r\n"},
          {one + "WDC.TXT", Weekday("AHU1", "07:00..16:30")},
          {one + "SDC.TXT", " 1000 !24-DEC-26              !SD2\r\n"},
          {one + "OVC.TXT",
           "  101 !AHU1        !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16\r\n"},
          {two + "TSC1.TXT", ".DFV = 5\r\n" + Weekday("TSC1", "06:00..15:30")},
          {two + "SDC.TXT", " 1000 !24-DEC-2026              !SD1\r\n"}};
}

/// A step of the program that writes.
struct Step {
  std::string name;
  std::function<int(test::DiskProgram&)> run;
};

int Settings(test::DiskProgram& program) {
  return program.Start([&program](cli::Console& console) -> int {
    const auto error = console.proc.profile.WriteIni("General", "Language", "044");
    if (error) program.err << FileMessage(console.proc.texts, *error);
    return error ? kFailed : kDone;
  });
}

int Erase(test::DiskProgram& program) {
  return program.Start([](cli::Console& console) -> int {
    LoadTree(console.proc);
    SelectNode(console.proc, 1);
    return console.proc.copies.Erase(console.proc.selection.Id(Catalogue::Wdc)) ? kDone : kFailed;
  });
}

int Fetch(test::DiskProgram& program) {
  program.controller.pieces = false;
  program.controller.answers["LIST TSC1"] =
      Weekday("TSC1", "08:00..17:00") + "TSC1.DFV=7\r\nEXIT\r\n";
  return program.Run({"get", "wdc", "TWO/TSC1"});
}

int Export(test::DiskProgram& program) { return program.Run({"export", "--local"}); }

std::vector<Step> Steps() {
  const auto put = [](const std::vector<std::string>& words, const std::string& input) {
    return [=](test::DiskProgram& program) {
      program.input = input;
      std::vector<std::string> all = {"put"};
      all.insert(all.end(), words.begin(), words.end());
      all.insert(all.end(), {"-", "--no-send"});
      return program.Run(all);
    };
  };
  return {
      {"a copy is replaced", put({"wdc", "ONE/AHU1"}, Weekday("AHU1", "08:00..12:00"))},
      {"a first copy", put({"ovc", "TWO/TSC1"}, kException)},
      {"a long copy", put({"sdc", "TWO/TSC1"}, std::string(201, '\n'))},
      {"a copy is fetched", Fetch},
      {"a copy is erased", Erase},
      {"settings", Settings},
      {"export", Export},
      {"export over another", Export},
  };
}

// The lines of a batch file are lines of the whole file, in order; no record is partial.
bool IsPartOf(const std::string& file, const std::string& whole) {
  if (!file.empty() && !file.ends_with("\r\n")) return false;
  std::size_t at = 0;
  for (std::size_t start = 0; start < file.size();) {
    const std::size_t end = file.find("\r\n", start) + 2;
    at = whole.find(file.substr(start, end - start), at);
    if (at == std::string::npos) return false;
    at += end - start;
    start = end;
  }
  return true;
}

bool Holds(const Tree& tree, const std::string& name, const std::string& bytes) {
  return tree.contains(name) && tree.at(name) == bytes;
}
bool IsLeftOver(const std::string& name) { return IsBesideName(name.substr(name.rfind('/') + 1)); }

struct Case {
  const Step& step;
  CallFault fault;
  FileCall call;
  std::string flushed;  // what the call makes lasting if it is a flush

  std::string Name() const {
    static constexpr std::array kNames = {"nothing",       "error",     "half",
                                          "killed before", "killed in", "killed after"};
    return step.name + ", call " + std::to_string(fault.at) + " " + call.name + " " + call.path +
           ": " + kNames.at(static_cast<std::size_t>(fault.kind)) + " " +
           std::to_string(fault.code) + (fault.lasting ? " from there on" : "");
  }
};

// What a flush makes lasting: its file or directory; of one that was just made, its name.
std::string Flushed(const std::vector<FileCall>& calls, std::size_t at) {
  const std::string& path = calls[at].path;
  while (at > 0 && calls[at - 1].name == "open" && calls[at - 1].path == path) --at;
  return at > 0 && calls[at - 1].name == "mkdir" ? calls[at - 1].path + "/" : path;
}

// The faults that the system could give that call.
std::vector<CallFault> FaultsOf(const FileCall& call) {
  const bool changes = test::Changes(call);
  const bool names = call.name == "create" || call.name == "open" || call.name == "rename" ||
                     call.name == "unlink" || call.name == "mkdir" || call.name == "list";
  std::vector<int> codes = {EIO};
  if (names) codes.push_back(EACCES);
  if (changes) codes.insert(codes.end(), {ENOSPC, EROFS});
  std::vector<CallFault> faults;
  for (const int code : codes) {
    faults.push_back({Kind::Error, code, 0, false});
    faults.push_back({Kind::Error, code, 0, true});
  }
  // The folder vanishes; to one call alone that would only mean that there is no such file.
  if (names) faults.push_back({Kind::Error, ENOENT, 0, true});
  faults.push_back({Kind::KillBefore});
  if (changes) faults.push_back({Kind::KillAfter});
  if (call.name == "write") {
    faults.push_back({Kind::Half});
    faults.push_back({Kind::Error, EINTR, 0, false});
    faults.push_back({Kind::KillHalf});
  }
  return faults;
}

bool Full() { return std::getenv("ZEKVIEW_FULL") != nullptr; }

class Saving : public ::testing::Test {
 protected:
  Outcome Run(const Step& step, const CallFault& fault) {
    return test::RunWatched(home, fault, [&](std::string& told) {
      test::DiskProgram program(home);
      const int status = step.run(program);
      told = program.err.str();
      return status;
    });
  }

  // A listing is shown even if it can't be kept, after a message.
  static bool KeptNothing(const Outcome& outcome) {
    return outcome.told.find("Inget kan sparas i mappen") != std::string::npos;
  }

  // What is known of controllers is a help; without it the next question says that nothing is
  // known.
  static bool IsRecord(const std::string& name) {
    return name.starts_with("Known/") || name == "SENT.TXT";
  }

  // The error in the files that a run left, or "".
  std::string Wrong(const Case& each, const Outcome& outcome, const Tree& before,
                    const Tree& whole) const {
    const Tree now = test::TreeOf(home);
    const bool done = !outcome.killed && outcome.status == kDone && !KeptNothing(outcome);
    for (const auto& [name, bytes] : now) {
      const bool isOld = Holds(before, name, bytes);
      const bool isNew = Holds(whole, name, bytes);
      if (!before.contains(name) && !whole.contains(name)) {
        if (!IsLeftOver(name)) return name + " is unknown";
        if (done && !IsRecord(name)) return name + " is left though all went well";
      } else if (done && !isNew && !IsRecord(name)) {
        return name + " is not new though all went well";
      } else if (!isOld && !isNew &&
                 !(name.starts_with("Batch/") && whole.contains(name) &&
                   IsPartOf(bytes, whole.at(name)))) {
        return name + " is torn";
      }
    }
    for (const auto& [name, bytes] : before) {
      if (!now.contains(name) && whole.contains(name)) return name + " is gone";
    }
    for (const auto& [name, bytes] : whole) {
      if (done && !now.contains(name) && !IsRecord(name))
        return name + " is missing though all went well";
    }
    if (outcome.killed) return {};
    if (!done && outcome.told.empty()) return "no error was reported";
    const bool unflushed = each.call.name == "fsync" && each.fault.kind == Kind::Error;
    if (done && unflushed && !IsRecord(each.flushed.substr(home.size())))
      return "what may not be on the disk was taken for saved";
    return {};
  }

  // The next run completes the step and deletes what the first one left.
  std::string WrongAfterwards(const Step& step, const Tree& whole) {
    const Outcome again = Run(step, {});
    if (again.status != kDone) return "afterwards: " + again.told;
    for (const auto& [name, bytes] : test::TreeOf(home)) {
      if (IsLeftOver(name)) return name + " stays for ever";
      if (!Holds(whole, name, bytes)) return name + " differs afterwards";
    }
    return {};
  }

  void Judge(const Case& each, const Tree& before, const Tree& whole) {
    test::PlantTree(home, before);
    const Outcome outcome = Run(each.step, each.fault);
    std::string wrong = Wrong(each, outcome, before, whole);
    const bool untouched = !outcome.killed && !test::Changes(each.call);
    if (wrong.empty() && !untouched) wrong = WrongAfterwards(each.step, whole);
    ++cases;
    if (wrong.empty()) return;
    ++faulty;
    if (faulty <= 10) ADD_FAILURE() << each.Name() << ": " << wrong << "\n" << outcome.told;
  }

  test::TemporaryFolder temporary{test::FastFolder()};
  std::string home = temporary.Name() + "home/";
  int cases = 0;
  int faulty = 0;
};

TEST_F(Saving, EveryFaultAtEveryCall) {
  const std::vector<Step> steps = Steps();
  std::vector<FileCall> start;
  int turn = 0;
  for (const Step& step : steps) {
    Tree before = Home();
    if (step.name.starts_with("export")) before[std::string(kTwo) + "TSC1 EXC.TXT"] = kException;
    if (step.name == "export over another") {
      before.insert({{"Batch/", ""}, {"Batch/WDC261121_083000.SKV", "old"}});
    }
    test::PlantTree(home, before);
    const Outcome healthy = Run(step, {});
    ASSERT_EQ(healthy.status, kDone) << step.name << healthy.told;
    const Tree whole = test::TreeOf(home);
    ASSERT_NE(whole, before) << step.name;
    // All steps start alike: the calls of that are made to fail in the first one only.
    if (start.empty()) start = healthy.calls;
    std::size_t first = 0;
    while (&step != &steps.front() && !Full() && first < start.size() &&
           first < healthy.calls.size() && start[first].name == healthy.calls[first].name &&
           start[first].path == healthy.calls[first].path) {
      ++first;
    }
    for (std::size_t at = first; at < healthy.calls.size(); ++at) {
      for (CallFault fault : FaultsOf(healthy.calls[at])) {
        if (turn++ % ZEKVIEW_EVERY != 0 && !Full()) continue;
        fault.at = static_cast<int>(at) + 1;
        Judge({step, fault, healthy.calls[at], Flushed(healthy.calls, at)}, before, whole);
      }
    }
  }
  std::cout << "figure: saving: " << cases - faulty << " of " << cases << '\n';
}

// The bytes of a file are on the disk before the rename, and its new name after that.
TEST_F(Saving, WhatIsRenamedWasFlushed) {
  for (const Step& step : Steps()) {
    if (step.name == "a copy is erased") continue;
    Tree before = Home();
    before[std::string(kTwo) + "TSC1 EXC.TXT"] = kException;
    test::PlantTree(home, before);
    const std::vector<FileCall> calls = Run(step, {}).calls;
    int renames = 0;
    for (std::size_t at = 0; at < calls.size(); ++at) {
      if (calls[at].name != "rename") continue;
      ++renames;
      // The first such call from one on, or `calls.size()`.
      const auto next = [&calls](std::size_t from, const char* name, const std::string& path) {
        while (from < calls.size() && (calls[from].name != name || calls[from].path != path))
          ++from;
        return from;
      };
      const std::string directory = calls[at].to.substr(0, calls[at].to.rfind('/') + 1);
      const std::size_t flush = next(0, "fsync", calls[at].path);
      EXPECT_LT(flush, at) << step.name;
      EXPECT_GT(next(flush, "write", calls[at].path), at) << step.name;
      EXPECT_LT(next(at, "fsync", directory), calls.size()) << step.name;
    }
    EXPECT_GT(renames, 0) << step.name;
  }
}

// The next write deletes a left-over file, but not while another process still writes it.
TEST_F(Saving, OnlyWhatAKilledProgramLeftIsSwept) {
  test::PlantTree(home, Home());
  DiskFiles files;
  const auto beside = [this] {
    int count = 0;
    for (const auto& [name, bytes] : test::TreeOf(home)) count += IsBesideName(name) ? 1 : 0;
    return count;
  };
  const CreatedFile running = files.Create(home + "export");
  EXPECT_FALSE(running.file->Append("half"));
  test::RunWatched(home, {Kind::KillBefore, 0, 10, false}, [this](std::string&) {
    DiskFiles others;
    const CreatedFile file = others.Create(home + "killed");
    while (true) static_cast<void>(file.file->Append("half"));  // until the system kills it
    return 0;
  });
  EXPECT_EQ(beside(), 2);
  EXPECT_EQ(files.List(home).size(), Home().size()) << "a left-over is no file of anybody's";
  EXPECT_FALSE(files.Write(home + "next", "x"));
  EXPECT_EQ(beside(), 1);
  EXPECT_FALSE(running.file->Commit());
  EXPECT_EQ(files.Read(home + "export").bytes, "half");
}

TEST_F(Saving, ALeftOverLinkIsNotFollowed) {
  test::PlantTree(home, {{"outside", "mine"}});
  const std::string beside = BesideName(home + "x", static_cast<unsigned long>(::getpid()), 1);
  std::filesystem::create_symlink(home + "outside", beside);
  DiskFiles files;
  EXPECT_FALSE(files.Write(home + "x", "new"));
  EXPECT_EQ(files.Read(home + "outside").bytes, "mine");
  EXPECT_EQ(files.Read(home + "x").bytes, "new");
}

}  // namespace
}  // namespace zek
