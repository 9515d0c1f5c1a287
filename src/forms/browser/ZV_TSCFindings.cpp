#include <string>
#include <vector>

#include <wx/weakref.h>

#include "app/PlantFindings.h"
#include "forms/FindingsForm.h"
#include "forms/browser/ZV_TSC.h"
#include "forms/calendar/ZV_SDC.h"
#include "forms/exception/ZV_OVC.h"
#include "forms/weekday/ZV_WDC.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

// The list of what is found in the whole plant.
namespace zek {
namespace {

std::string Progress(const ZV_Proc& proc, const PlantFindings& plant) {
  return Message(proc.Text(text::kFindingsProgress),
                 {std::to_string(plant.Judged()), std::to_string(plant.Controls()),
                  std::to_string(plant.WithoutCopies())});
}

std::vector<FindingRow> Rows(const ZV_Proc& proc, const PlantFindings& plant, std::size_t from) {
  std::vector<FindingRow> rows;
  for (std::size_t at = from; at < plant.Found().size(); ++at) {
    const PlantFinding& found = plant.Found()[at];
    rows.push_back({NodeName(proc.tree, proc.topics, found.node), found.shown});
  }
  return rows;
}

}  // namespace

// The list comes back when the editor that it led to is closed.
void ZV_TSC::OnFindings() {
  const wxWeakRef<ZV_TSC> alive(this);
  std::size_t marked = 0;
  while (!busy_ && !closing_) {
    PlantFindings plant(proc_);
    const FindingSource source{
        [&plant] { return plant.Step(); },
        [this, &plant](std::size_t from) { return Rows(proc_, plant, from); },
        [this, &plant] { return Progress(proc_, plant); }, [&plant] { plant.Stop(); }};
    const auto chosen =
        ShowFindings(this, proc_, proc_.Text(text::kFindingsPlantTitle), source, marked);
    if (!alive) return;
    if (!chosen) break;
    marked = *chosen;
    const PlantFinding found = plant.Found().at(marked);
    TreeView->SelectPlace(found.node);
    const Catalogue catalogue = found.shown.leads.catalogue;
    Get(catalogue,
        catalogue == Catalogue::Wdc   ? ShowWeekdayForm
        : catalogue == Catalogue::Sdc ? ShowCalendarForm
                                      : ShowExceptionForm,
        found.shown.leads);
    if (!alive) return;
  }
  TakeKeys();
}

}  // namespace zek
