#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>

#include "catalogue/OpenMarks.h"
#include "support/CaseFile.h"
#include "support/MemoryFiles.h"
#include "support/TextNames.h"
#include "support/VirtualTurn.h"
#include "system/Paths.h"

namespace zek {
namespace {

constexpr int kHoursBehind = 3;

// Programs of several users with one data folder. A user whose name begins with a capital letter
// sits at another computer, whose clock is behind.
class Programs {
 public:
  // "kalle open AHU1", "eva look AHU1", "kalle dies", "wait 60" (seconds), "full disk", "lost",
  // "foreign TEXT" (a file), "files". TSC1 has a catalogue of its own.
  std::string Do(const std::string& line) {
    std::string who;
    std::string what;
    std::string rest;
    std::istringstream(line) >> who >> what >> rest;
    if (who == "lost") files_.files.clear();
    if (who == "full") files_.failWrites = FileError::Reason::Full;
    if (who == "wait") turn_.Block(1000 * std::stoll(what));
    if (who == "foreign") files_.files[folder_ + "X.OPEN"] = line;
    if (who == "files") return std::to_string(files_.files.size()) + " files\n";
    if (what == "dies") programs_.erase(who);
    const CatalogueId id{
        Catalogue::Wdc, 0, rest, Generation::Zek1, rest == "TSC1" ? "TSC1 WDC.TXT" : "WDC.TXT",
        "ONE",          {}};
    if (what == "open") Of(who).Open(id);
    if (what == "refresh") Of(who).Refresh(id);
    if (what == "close") Of(who).Close(id);
    return what == "look" ? who + ": " + test::Filled(Of(who).OthersAt(id)) + "\n" : "";
  }

 private:
  OpenMarks& Of(const std::string& who) {
    const bool far = who[0] < 'a';
    const auto clock = [this, far] {
      LocalTime time = turn_.Clock();
      time.hour -= far ? kHoursBehind : 0;
      return time;
    };
    return programs_
        .try_emplace(who, files_, settings_, texts_, clock, RunBy{who, far ? "HALL" : "DESK", who})
        .first->second;
  }

  test::MemoryFiles files_;
  test::VirtualTurn turn_;
  Settings settings_ = [] {
    Settings settings;
    settings.ProgramPath = "/zek/";
    return settings;
  }();
  std::string folder_ = WithSeparator("/zek/Open");
  LanguageTexts texts_ = test::NamedTexts("");
  std::map<std::string, OpenMarks> programs_;
};

TEST(OpenMarks, Cases) {
  test::CheckCases("marks.txt", [](const test::TextCase& given) {
    Programs programs;
    std::string outcome;
    for (const std::string& line : given.given) outcome += programs.Do(line);
    return outcome;
  });
}

}  // namespace
}  // namespace zek
