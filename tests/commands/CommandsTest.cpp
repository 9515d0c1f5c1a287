#include <gtest/gtest.h>
#include <sstream>

#include "commands/Commands.h"
#include "support/TestSession.h"
#include "support/TransferSession.h"
#include "system/Paths.h"

namespace zek::cli {
namespace {

// The command line program over a controller in memory, with its streams caught.
class Program {
 public:
  Program() {
    session.files.files["/zek/zek_lang.046"] = "0=Svenska\r\n541=no such catalogue\r\n";
    session.profile.WriteIni("General", "Language", "046");
    session.socket.onConnected = [this] {
      if (session.pieces) session.socket.Say("<TRANSPARENT>");
    };
  }

  int Run(const std::vector<std::string>& words) {
    out.str({});
    err.str({});
    const Arguments arguments = ParseArguments(words);
    if (!arguments.error.empty()) return kWrongUsage;
    CliPrompts prompts(err);
    std::istringstream in(input);
    ZV_Proc proc({session.files, session.profile, session.turn, prompts, session.socket,
                  session.dde, session.tags});
    proc.settings.ProgramPath = "/zek/";
    session.turn.tick = [&proc] { proc.connection.Tick(); };
    Console console{proc, prompts, in, out, err};
    const auto ended = StartCommands(console);
    return ended ? *ended : RunCommand(console, arguments);
  }

  test::TransferSession session;
  std::string input;
  std::ostringstream out;
  std::ostringstream err;
};

TEST(Commands, ListTopicsAndObjects) {
  Program program;
  EXPECT_EQ(program.Run({"topics"}), kDone);
  EXPECT_EQ(program.out.str().substr(0, 33), "0\tONE\t1\t127.0.0.1:5100\tFirst\n1\tTW");
  EXPECT_EQ(program.Run({"objects"}), kDone);
  EXPECT_EQ(program.out.str().substr(0, 85),
            "_0\tFirst [127.0.0.1:5100/ONE]\n"
            "_0_2_0\tFirst [127.0.0.1:5100/ONE]\\Plant 1/DUC 1/Heating");
}

TEST(Commands, SendPrintsUntilASecondOfSilence) {
  Program program;
  program.session.socket.onSent = [&](std::string_view) {
    program.session.Reply("\xE5ngpanna\x07\r\n", 500);
    program.session.Reply("second\r\n", 1400);
    program.session.Reply("too late\r\n", 2700);
  };
  EXPECT_EQ(program.Run({"send", "one", "LIST"}), kDone);
  EXPECT_EQ(program.out.str(), "\xC3\xA5ngpanna<7>\nsecond\n");
  program.session.socket.onSent = [](std::string_view) {};
  EXPECT_EQ(program.Run({"send", "one", "LIST"}), kFailed);
  program.session.socket.reachable = false;
  EXPECT_EQ(program.Run({"send", "one", "LIST"}), kFailed);
}

TEST(Commands, GetPrintsTheCatalogueAsItsCopyHoldsIt) {
  Program program;
  program.session.pieces = false;
  program.session.answers["LIST TSC1"] = "1000 !TSC1 !MO\xE5\r\nTSC1.DFV=7\r\nEXIT\r\n";
  EXPECT_EQ(program.Run({"get", "WDC", "two/tsc1"}), kDone);
  EXPECT_EQ(program.out.str(), ".DFV = 7\n1000 !TSC1 !MO\xC3\xA5\n");
  EXPECT_EQ(program.session.files.files["/zek/f127_0_0_1_5100_3 Second TSC1.TXT"],
            ".DFV = 7\r\n1000 !TSC1 !MO\xE5\r\n");
  program.session.answers.clear();
  EXPECT_EQ(program.Run({"get", "wdc", "TWO/TSC1", "--local"}), kDone) << "the copy is used";
  EXPECT_EQ(program.Run({"get", "wdc", "TWO/TSC1"}), kFailed);
}

TEST(Commands, PutSendsOrOnlyStores) {
  Program program;
  program.input = "1000 !AHU1 !MO\n";
  EXPECT_EQ(program.Run({"put", "sdc", "ONE", "-", "--no-send"}), kDone);
  EXPECT_TRUE(program.session.commands.empty());
  EXPECT_EQ(program.session.files.files["/zek/f127_0_0_1_5100 First SDC.TXT"],
            "1000 !AHU1 !MO\r\n");
  EXPECT_EQ(program.Run({"put", "sdc", "ONE", "-"}), kDone);
  EXPECT_EQ(program.session.commands,
            (std::vector<std::string>{"EXIT", "EXIT", ".SDC", "1000 !AHU1 !MO", "EXIT"}));
  program.session.answers["1000 !AHU1 !MO"] = "\x02\r\n";
  EXPECT_EQ(program.Run({"put", "sdc", "ONE", "-"}), kFailed);
  program.session.files.failWrites = FileError::Reason::Full;
  EXPECT_EQ(program.Run({"put", "sdc", "ONE", "-", "--no-send"}), kFailed);
}

TEST(Commands, WrongUsageIsTwo) {
  const std::vector<std::vector<std::string>> cases = {
      {},
      {"nix"},
      {"--nix"},
      {"--dir"},
      {"topics", "x"},
      {"get", "wdc"},
      {"get", "xyz", "ONE"},
      {"get", "wdc", "NIX"},
      {"get", "wdc", "TWO"},  // a root of named time controls has no weekday catalogue
      {"get", "wdc", "ONE", "--no-send"},
      {"send", "NIX", "x"},
      {"send", "ONE", "\xE4\xB8\xAD"},
      {"put", "wdc", "ONE", "/no/such/file"},
  };
  for (const auto& words : cases) {
    Program program;
    EXPECT_EQ(program.Run(words), kWrongUsage) << (words.empty() ? "nothing" : words.back());
    EXPECT_EQ(program.out.str(), "");
  }
}

TEST(Commands, WithoutALanguageNothingRuns) {
  Program program;
  program.session.files.files.erase("/zek/zek_lang.046");
  EXPECT_EQ(program.Run({"topics"}), kFailed);
  EXPECT_NE(program.err.str().find("Language"), std::string::npos);
}

TEST(Commands, ExportNamesTheFilesAndWhatIsMissing) {
  Program program;
  program.session.files.files["/zek/f127_0_0_1_5100_3 Second TSC1.TXT"] =
      " 1000 !TSC1        !MO           !07:00                    !1        !0\r\n";
  EXPECT_EQ(program.Run({"export", "WDC", "--local"}), kFailed);
  EXPECT_TRUE(program.out.str().starts_with(WithSeparator("/zek/Batch") + "WDC"));
  EXPECT_NE(program.err.str().find("TWO/PLT7 WDC: "), std::string::npos);
  EXPECT_EQ(program.err.str().find("TWO/TSC1"), std::string::npos) << program.err.str();
  for (const char* copy : {"f127_0_0_1_5100_3 Second PLT7.TXT", "f127_0_0_1_5100 First WDC.TXT"})
    program.session.files.files[std::string("/zek/") + copy] = "";
  EXPECT_EQ(program.Run({"export", "wdc", "wdc", "--local"}), kDone);
  EXPECT_EQ(program.Run({"export", "xdc"}), kWrongUsage);
  EXPECT_EQ(program.Run({"export", "wdc", "sdc", "ovc", "wdc"}), kWrongUsage);
}

TEST(Commands, HistoryListsComparesAndRestores) {
  Program program;
  const std::string local = "/zek/f127_0_0_1_5100_3 Second TSC1";
  program.session.files.files[local + ".TXT"] = "1001 now\r\n";
  program.session.files
      .files[WithSeparator("/zek/History") + local.substr(5) + " 20261121-083000.TXT"] =
      "1001 then\r\n";
  const std::vector<std::string> history{"history", "wdc", "TWO/TSC1"};
  const auto with = [&](const std::vector<std::string>& more) {
    std::vector<std::string> words = history;
    words.insert(words.end(), more.begin(), more.end());
    return words;
  };
  EXPECT_EQ(program.Run(history), kDone);
  EXPECT_EQ(program.out.str(), "20261121-083000\t2026-11-21 08:30:00\n");
  EXPECT_EQ(program.Run(with({"compare", "20261121-083000"})), kDone);
  EXPECT_EQ(program.out.str(), "- 1001 then\n+ 1001 now\n");
  EXPECT_EQ(program.Run(with({"restore", "20261121-083000"})), kDone);
  EXPECT_EQ(program.session.files.files[local + ".TXT"], "1001 then\r\n");
  for (const auto& wrong : {with({"restore", "20261121-083001"}), with({"restore"}),
                            with({"remove", "20261121-083000"})}) {
    EXPECT_EQ(program.Run(wrong), kWrongUsage) << wrong.back();
  }
}

}  // namespace
}  // namespace zek::cli
