#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "app/OpenedFindings.h"
#include "app/PlantFindings.h"
#include "editors/CalendarEditor.h"
#include "editors/WeekdayEditor.h"
#include "support/SessionPlayer.h"

namespace zek {
namespace {

// "wdc LINE", "sdc LINE" and "ovc LINE" add to the local copies of TWO/TSC1, "no sdc" erases one.
// "wdc", "sdc" and "ovc" open that catalogue: each gives code, place, text and where it leads, and
// what is not known. "row 2 1 08:00 21" enters start and start value into row and day, "give 2026
// 11 24 8" a type; then comes what is new. "plant" lists the whole plant.
class FindingsPlayer : public test::SessionPlayer {
 public:
  FindingsPlayer() {
    proc.texts = test::NamedTexts("613=Tis\n614=Ons\n");
    proc.settings.SDCLastYear = 2099;
    proc.now = [] { return LocalTime{2026, 11, 22, 8, 30, 0}; };
    SelectNode(proc, FindNode(proc.tree, proc.topics, "TWO/TSC1").value());
  }

 protected:
  std::string Do(const std::string& what, const std::string& rest) override {
    if (what == "no") files.files.erase(kCopies.at(rest));
    if (what == "row") return Row(rest);
    if (what == "give") return Give(rest);
    if (what == "plant") return Plant();
    if (!kCopies.contains(what)) return SessionPlayer::Do(what, rest);
    if (rest.empty()) return Open(what);
    files.files[kCopies.at(what)] += rest + "\r\n";
    return {};
  }

 private:
  CatalogueContent Content(Catalogue catalogue) {
    return proc.copies.Peek(proc.selection.Id(catalogue));
  }
  static std::string Said(const ShownFinding& shown) {
    std::ostringstream said;
    said << InfoOf(shown.kind).code << ": " << shown.place << ": " << shown.text << " ->";
    const EntryPlace& to = shown.leads;
    if (to.cell) said << " day " << to.cell->day << " row " << to.cell->row;
    if (to.exception) said << " row " << *to.exception;
    if (to.date)
      said << " " << DateOf(StartOf(*to.date)).month << "/" << DateOf(StartOf(*to.date)).day;
    return said.str();
  }
  static std::string Listed(OpenedFindings& findings) {
    while (findings.Step()) {
    }
    std::string listed;
    for (const ShownFinding& shown : findings.Shown())
      listed += (listed.empty() ? "" : "\n") + test::Filled(Said(shown));
    const std::string missing = findings.Missing();
    return listed + (missing.empty() ? "" : "\n" + test::Filled(missing));
  }
  std::string Open(const std::string& kind) {
    const Catalogue catalogue = kind == "wdc"   ? Catalogue::Wdc
                                : kind == "sdc" ? Catalogue::Sdc
                                                : Catalogue::Ovc;
    const CatalogueContent content = Content(catalogue);
    OpenedFindings findings(proc, catalogue, content);
    const ControlTables& read = ReadKnownTables(proc, proc.selection).tables;
    if (kind == "wdc") findings.Search(read.weekdays.table);
    if (kind == "sdc") findings.Search(read.calendar.table);
    if (kind == "ovc") findings.Search(read.exceptions.table);
    return Listed(findings);
  }
  static std::string New(OpenedFindings& findings) {
    std::string all;
    for (const std::string& each : findings.NewOnes()) all += test::Filled(each) + "; ";
    return "new: " + all;
  }
  std::string Row(const std::string& rest) {
    std::istringstream words(rest);
    std::size_t row = 0;
    std::size_t day = 0;
    std::string start;
    std::string value;
    words >> row >> day >> start >> value;
    const CatalogueContent content = Content(Catalogue::Wdc);
    OpenedFindings findings(proc, Catalogue::Wdc, content);
    WeekdayEditor editor(content.lines, proc.selection.Id(Catalogue::Wdc).Owner(), '.', {},
                         Access::Edit);
    editor.ShowRow(row);
    editor.Enter({WeekdayBox::Start, day}, start == "-" ? "" : start);
    if (!value.empty()) editor.Enter({WeekdayBox::ValueOn, day}, value);
    std::vector<Finding> entered;
    for (const WeekdayCell& cell : editor.NotEntered())
      entered.push_back(
          {FindingKind::StartNotEntered, "wdc " + std::to_string(NumberOfCell(cell)), {}});
    findings.Search(editor.Table(), entered);
    return Listed(findings) + "\n" + New(findings);
  }
  std::string Give(const std::string& rest) {
    std::istringstream words(rest);
    CalendarDate date;
    int type = 0;
    words >> date.year >> date.month >> date.day >> type;
    const CatalogueContent content = Content(Catalogue::Sdc);
    OpenedFindings findings(proc, Catalogue::Sdc, content);
    CalendarTable table = ReadKnownTables(proc, proc.selection).tables.calendar.table;
    table.Give(date, date, static_cast<std::int16_t>(type));
    findings.Search(table);
    return New(findings);
  }
  std::string Plant() {
    PlantFindings plant(proc);
    while (plant.Step()) {
    }
    std::string all;
    for (const PlantFinding& found : plant.Found())
      all += NodeName(proc.tree, proc.topics, found.node) + " " + test::Filled(Said(found.shown)) +
             "\n";
    return all + std::to_string(plant.Judged()) + " of " + std::to_string(plant.Controls()) +
           ", without copies " + std::to_string(plant.WithoutCopies());
  }

  inline static const std::map<std::string, std::string> kCopies = {
      {"wdc", "/zek/f127_0_0_1_5100_3 Second TSC1.TXT"},
      {"sdc", "/zek/f127_0_0_1_5100_3 Second SDC.TXT"},
      {"ovc", "/zek/f127_0_0_1_5100_3 Second TSC1 EXC.TXT"}};
};

TEST(OpenedFindings, Cases) {
  test::CheckCases("opened-findings.txt", [](const test::TextCase& given) {
    return FindingsPlayer().PlayAll(given.given);
  });
}

}  // namespace
}  // namespace zek
