#include <algorithm>
#include <functional>
#include <string>

#include "Demand.h"
#include "Targets.h"
#include "formats/CatalogueFields.h"
#include "plan/ChangeList.h"
#include "plan/ChangedLines.h"
#include "plan/PlanFile.h"
#include "plan/PlanTarget.h"
#include "plan/PlanWords.h"
#include "support/TestSession.h"
#include "text/Lines.h"

namespace zek::fuzz {
namespace {

using Lines = std::vector<std::string>;

// What control AHU1 has; "PLT7" and others are not there.
const Lines& ListingOf(Catalogue kind) {
  static const Lines dates{" 1000 !24-DEC-26..26-DEC-26                                !SD1"};
  static const Lines rows{
      " 1000 !AHU1        !MO..FR       !07:00..16:30             !21       !17"};
  static const Lines exceptions{
      "    1 !AHU1        !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16"};
  if (kind == Catalogue::Sdc) return dates;
  return kind == Catalogue::Wdc ? rows : exceptions;
}

test::TestSession& Session() {
  static test::TestSession session;
  return session;
}

void DemandNoSecondChange(Catalogue kind, std::span<const ListedChange> changes) {
  ZV_Proc& proc = Session().proc;
  Session().Select("ONE/AHU1");
  const CatalogueId id = Session().Id(kind);
  const ChangedLines first = ChangeLines(proc, id, ListingOf(kind), changes);
  if (!first.refusal.empty()) return;
  const ChangedLines again = ChangeLines(proc, id, first.will, changes);
  Demand(
      !again.refusal.empty() || EntriesIn(proc, id, again.will) == EntriesIn(proc, id, first.will),
      "changes that are there change nothing");
}

}  // namespace

void ChangeLists(std::string_view input) {
  const ChangeList list = ReadChangeList(input);
  if (list.bad) {
    std::string_view rest = input;
    for (std::size_t line = 1; line < list.bad->line; ++line) TakeLine(rest);
    const ChangeList before = ReadChangeList(input.substr(0, input.size() - rest.size()));
    Demand(!before.bad && before.changes.size() == list.changes.size(),
           "the first wrong line is named");
  }
  for (const ListedChange& change : list.changes) {
    Demand(!ChangeInWords(change, Session().proc.texts, {}, '.').empty(), "a change has words");
    const auto* const rows = std::get_if<WeekdayChange>(&change);
    if (rows == nullptr) continue;
    const auto twice =
        std::adjacent_find(rows->days.begin(), rows->days.end(), std::greater_equal());
    Demand(twice == rows->days.end(), "each day is meant once");
  }
  for (const Catalogue kind : {Catalogue::Sdc, Catalogue::Wdc, Catalogue::Ovc})
    DemandNoSecondChange(kind, list.changes);
  Session().prompts.shown.clear();
}

// The input as it is, and as records of a file whose checksum is right.
void PlanFiles(std::string_view input) {
  Demand(ReadPlanFile(input).bad == 0 || ReadPlanFile(input).plan.catalogues.empty(),
         "of a damaged plan nothing is taken");
  const std::string none = BuildPlanFile({});
  std::string_view format = none;
  format = TakeLine(format);
  Lines records;
  while (!input.empty()) records.emplace_back(TakeLine(input));
  const PlanReading reading = ReadPlanFile(BuildRecords(format, records));
  if (reading.bad > 0) return;
  const std::string built = BuildPlanFile(reading.plan);
  const PlanReading again = ReadPlanFile(built);
  Demand(again.bad == 0 && BuildPlanFile(again.plan) == built, "a plan that was built is the same");
  for (const PlannedCatalogue& planned : reading.plan.catalogues) {
    const PlanTarget target = TargetOf(Session().proc, planned);
    if (!target.refusal.empty()) continue;
    Demand(Compare(Session().proc, target.id, planned, planned.controls.front().was).state !=
                   PlanState::Other ||
               planned.controls.size() > 1,
           "what was planned against is known again");
  }
}

}  // namespace zek::fuzz
