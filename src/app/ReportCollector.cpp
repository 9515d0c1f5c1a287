#include "app/ReportCollector.h"

#include <utility>

#include "catalogue/CatalogueTitle.h"
#include "catalogue/CopyStates.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {

ReportCollector::ReportCollector(ZV_Proc& proc, ControlReader::Source source, DayNumber today)
    : proc_(proc),
      context_{today, proc.settings.SwedishHolidays, proc.settings.DecimalSeparator},
      reader_(proc, Noting(std::move(source))) {}

// Adds what the controller itself told: the copy may have kept changes that were not sent.
ControlReader::Source ReportCollector::Noting(ControlReader::Source source) {
  source.read = [this, read = std::move(source.read)](const CatalogueId& id) {
    std::optional<CatalogueContent> content = read(id);
    if (content && content->from == LinesFrom::Controller)
      fetched_[id.localFile] = ToTheMinute(DateAndTime(proc_.now()));
    return content;
  };
  return source;
}

bool ReportCollector::Add(std::size_t node) {
  std::optional<ControlTables> tables = reader_.Read(node);
  if (!tables) return false;
  ReportedControl control;
  control.node = NodeName(proc_.tree, proc_.topics, node);
  control.name = proc_.tree[node].Text;
  control.reads = Reads(tables->known);
  control.values =
      ReadPickList(proc_.profile, proc_.selection.PickListTable, context_.decimalSeparator);
  control.findings = FindingsOf(*tables, context_);
  for (Finding& shared : SharedFindings({&*tables, 1}, false, context_))
    control.findings.push_back(std::move(shared));
  control.tables = *std::move(tables);
  controls_.push_back(std::move(control));
  return true;
}

// Of each catalogue of the selected control, when and from where it was read.
std::vector<std::string> ReportCollector::Reads(const KnownCatalogues& known) const {
  std::vector<std::string> reads;
  AddRead(reads, Catalogue::Wdc, known.weekdays);
  AddRead(reads, Catalogue::Sdc, known.calendar);
  AddRead(reads, Catalogue::Ovc, known.exceptions);
  return reads;
}

// A copy that is there and can't be read counts as missing.
void ReportCollector::AddRead(std::vector<std::string>& reads, Catalogue catalogue,
                              bool known) const {
  const CatalogueId id = proc_.selection.Id(catalogue);
  CopyState state = CopyStates(proc_.copies, proc_.records).Of(id);
  if (const auto fetched = fetched_.find(id.localFile); fetched != fetched_.end())
    state = {true, fetched->second};
  const Topic& topic = proc_.topics[proc_.selection.CurrentObject];
  const std::int32_t number = !state.exists || !known ? text::kReportMissing
                              : state.time.empty()    ? text::kReportReadUnknown
                                                      : text::kReportRead;
  const std::string title = proc_.Text(KindTitle(catalogue));
  const std::string where = topic.TopicName + " " + topic.Address;
  reads.push_back(Message(proc_.Text(number), {title, state.time, where}));
  if (state.unsent) reads.push_back(Message(proc_.Text(text::kReportUnsent), {title}));
}

std::string ReportCollector::Page(int year) const {
  return ReportOf(controls_, {proc_.texts, context_.today, year, context_.decimalSeparator});
}

}  // namespace zek
