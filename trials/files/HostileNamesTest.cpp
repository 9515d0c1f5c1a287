// Names from settings, time controls and the command line that try to leave the program directory
// or to reach a device, or that are invalid.

#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>

#include "app/StartSession.h"
#include "files/DiskProgram.h"
#include "files/FileCalls.h"
#include "files/Tree.h"
#include "support/TemporaryFolder.h"
#include "support/Transfers.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr std::size_t kNames = 1000;

// One behind the other, a tab between them.
constexpr std::string_view kPieces =
    "..\t../\t..\\\t/\t\\\t../../outside.txt\t..\\..\\outside.txt\t/etc/passwd\tC:\\\tC:\t"
    "\\\\server\\share\\\t\\\\.\\PHYSICALDRIVE0\t//\t./\t.\t...\t. .\tx.\tx \t \t   \t"
    "CON\tcon.txt\tNUL\tnul.\tAUX \tPRN.TXT\tCOM1\tcom9.x\tCOM\xB9\tLPT1\tlpt0.WDC\tCONIN$\t"
    "CLOCK$\tNUL:stream\tx::$DATA\t:\t*\t?\t*.*\t\"\t<\t>\t|\t>x\t~\t~1\t%TEMP%\t$HOME\t`id`\t"
    "$(id)\t-\t--dir\t--\t/INI:\t\x01\t\x1F\t\x7F\t\x0B\t\x1B[2J\t\x80\t\x81\t\xA0\t\xE5\t\xFF\t"
    "\xC3\xA5\t%00\t%2e%2e%2f\tzek_lang.046\tZEKView.INI\tBatch/x\tBatch\tHistory/x\tdesktop.ini\t"
    "x.zvtmp1\t[\t]\t[x]\t{a}\t(b)\t'\t''\t\"q\"\t=\t,\t;\t#\t&\t\r\n[General]\t\nLanguage=../x";

std::vector<std::string> Pieces() {
  std::vector<std::string> pieces;
  for (std::string_view rest = kPieces; !rest.empty();) {
    const std::string_view piece = GetField(rest, 0, "\t");
    pieces.emplace_back(piece);
    rest.remove_prefix(std::min(piece.size() + 1, rest.size()));
  }
  for (const std::size_t length : {130U, 244U, 250U, 300U, 3000U}) {
    pieces.emplace_back(length, 'x');
    pieces.emplace_back(length, '.');
    pieces.emplace_back(length, '\xE5');
    pieces.push_back(std::string(length, ' ') + "x");
  }
  return pieces;
}

// Each piece, also before and after a name, and then combinations of them.
std::vector<std::string> HostileNames() {
  const std::vector<std::string> pieces = Pieces();
  std::vector<std::string> names = pieces;
  for (const std::string& piece : pieces) {
    for (const char* const end : {".TXT", " ", ".", "/"}) names.push_back(piece + end);
    names.push_back("x" + piece);
  }
  for (unsigned state = 1; names.size() < kNames;) {
    std::string name;
    for (int i = 0; i < 3; ++i) {
      state = state * 1'664'525U + 1'013'904'223U;
      name += pieces[(state >> 16) % pieces.size()];
    }
    names.push_back(std::move(name));
  }
  return names;
}

// A name that every system holds as a file of that name, or refuses because it is too long.
bool IsHarmless(const std::string& utf8) {
  const std::string name = Windows1252FromUtf8(utf8);
  if (name.empty() || name.ends_with('.') || name.ends_with(' ')) return false;
  const bool fits = std::none_of(name.begin(), name.end(), [](char each) {
    return static_cast<unsigned char>(each) < 32 ||
           std::string_view("\\/:*?\"<>|").find(each) != std::string_view::npos;
  });
  const std::string stem = UpperCase(Trim(GetField(name, 0, ".")));
  for (const char* const device : {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$", "CLOCK$"}) {
    if (stem == device) return false;
  }
  const bool numbered =
      stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) &&
      std::string_view("0123456789\xB9\xB2\xB3").find(stem[3]) != std::string_view::npos;
  return fits && !numbered;
}

std::string Ini(const std::string& name, const std::string& language) {
  return "[General]\r\nLanguage=" + language +
         "\r\nDisconnectTime=60\r\nGetTSCTimeout=5\r\nAlwaysUseLocal=yes\r\nAlwaysUseDSS=no\r\n"
         "[Topics]\r\nA=YES,2," +
         name + ",x\r\nB=YES,2,x," + name + "\r\nC=YES,1," + name + "," + name + "," + name +
         "\r\nD=YES,2,,\r\n" + name +
         "=YES,2,y,z\r\n"
         "[A]\r\nT=x\r\n[B]\r\n" +
         name + "=x\r\n[C]\r\nT=" + name + "\r\n[D]\r\n" + name + "=" + name + "\r\n[" + name +
         "]\r\n" + name + "=x;" + name + "\r\n";
}

class HostileNamesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(temporary.Path() / "middle" / "home");
    for (const char* const folder : {"", "middle"}) {
      std::ofstream(temporary.Path() / folder / "outside.txt") << "mine";
    }
    around = Around();
  }

  // Everything in the folders above the program directory.
  test::Tree Around() const {
    test::Tree tree = test::TreeOf(temporary.Path());
    std::erase_if(tree, [](const auto& file) { return file.first.starts_with("middle/home"); });
    return tree;
  }

  // Creates the program directory again.
  void Plant(const std::string& ini) {
    test::PlantTree(home, {{"ZEKView.INI", ini},
                           {"zek_lang.046", "0=Svenska\r\n"},
                           {"zek_lang.044", "0=English\r\n"}});
  }

  // Everything that is done with the catalogues of every node.
  static int WorkOnAll(cli::Console& console) {
    ZV_Proc& proc = console.proc;
    LoadTree(proc);
    for (std::size_t node = 0; node < proc.tree.size(); ++node) {
      SelectNode(proc, node);
      for (const Catalogue catalogue : {Catalogue::Wdc, Catalogue::Sdc, Catalogue::Ovc}) {
        test::Send(proc, catalogue, {"1000 !x"});
        test::Fetch(proc, catalogue);
        if (node % 2 == 1) proc.copies.Erase(proc.selection.Id(catalogue));
      }
    }
    return kDone;
  }

  // Runs the program and checks its file calls; returns "" or the error. The program must not touch
  // anything outside, except a file named as an argument.
  template <class Run>
  std::string Judge(Run run, bool readsArguments = false) {
    test::DiskProgram program(home);
    program.input = " 1000 !x\r\n";
    test::WatchCalls("/");
    run(program);
    told = program.err.str();
    for (const test::FileCall& call : test::TakeCalls()) {
      if (readsArguments && !test::Changes(call)) continue;
      for (const std::string& path : {call.path, call.to}) {
        if (path.empty()) continue;
        const auto whole = PathOf(path).lexically_normal();
        if (!Utf8Of(whole).starts_with(home)) return call.name + " " + path + " is outside";
        if (!test::Changes(call)) continue;
        if (!IsHarmless(Utf8Of(whole.filename()))) return call.name + " " + path + " is no name";
      }
    }
    return {};
  }

  std::string Wrong(const std::string& name) {
    const std::string utf8 = Utf8FromWindows1252(name);
    Plant(Ini(name, "046"));
    std::string wrong = Judge([](test::DiskProgram& program) { program.Start(WorkOnAll); });
    if (wrong.empty()) {
      wrong = Judge([](test::DiskProgram& program) { program.Run({"export", "--local"}); });
    }
    for (const auto& [path, bytes] : test::TreeOf(home)) {
      const std::string file = path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
      if (wrong.empty() && !IsHarmless(file.substr(file.rfind('/') + 1)))
        wrong = path + " was made";
    }
    Plant(Ini(name, name));
    if (wrong.empty()) {
      wrong = Judge([](test::DiskProgram& program) { program.Run({"topics"}); });
    }
    Plant(Ini("x", "046"));
    for (const std::string& word : {name, "A/" + utf8}) {
      if (!wrong.empty()) break;
      wrong = Judge(
          [&](test::DiskProgram& program) {
            program.Run({"put", "wdc", word, "-", "--no-send"});
            program.Run({"put", "wdc", "A/T", word, "--no-send"});
            program.Run({"put", word, "A/T", "-"});
            program.Run({"check", "sdc", "A/T", word});
            program.Run({"get", "ovc", word, "--local"});
            program.Run({"export", word});
            program.Run({"send", word, word});
            program.Run({word});
            program.Run({"--dir", word});
          },
          true);
    }
    if (wrong.empty() && Around() != around) wrong = "something around it has changed";
    return wrong;
  }

  test::TemporaryFolder temporary{test::FastFolder()};
  std::string home = temporary.Name() + "middle/home/";
  test::Tree around;
  std::string told;  // by the last run
};

TEST_F(HostileNamesTest, NothingOutsideTheProgramDirectoryAndNoDevice) {
  std::size_t good = 0;
  std::size_t tried = 0;
  const std::vector<std::string> names = HostileNames();
  for (std::size_t at = 0; at < names.size(); at += ZEKVIEW_EVERY) {
    const std::string& name = names[at];
    ++tried;
    const std::string wrong = Wrong(name);
    EXPECT_EQ(wrong, "") << ::testing::PrintToString(name.substr(0, 300));
    if (wrong.empty()) ++good;
  }
  std::cout << "figure: hostile names: " << good << " of " << tried << '\n';
}

TEST_F(HostileNamesTest, ANameThatIsTooLongIsTold) {
  Plant(Ini(std::string(300, 'x'), "046"));
  Judge([](test::DiskProgram& program) { program.Start(WorkOnAll); });
  EXPECT_NE(told.find("namnet \xC3\xA4r f\xC3\xB6r l\xC3\xA5ngt"), std::string::npos) << told;
  for (std::size_t at = 0, end = 0; at < told.size(); at = end + 1) {
    end = std::min(told.find('\n', at), told.size());
    EXPECT_LT(end - at, 700U) << "a message that one can read";
  }
}

// A name that just fits is saved, though the file is written beside it first.
TEST_F(HostileNamesTest, TheLongestNameThatFits) {
  const std::string fits(255 - std::string(" T.TXT").size() - 2, 'x');
  Plant({});
  DiskFiles files;
  EXPECT_FALSE(files.Write(home + fits + "  T.TXT", "x"));
  EXPECT_TRUE(files.Write(home + fits + "xx  T.TXT", "x"));
}

}  // namespace
}  // namespace zek
