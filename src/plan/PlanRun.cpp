#include "plan/PlanRun.h"

#include <algorithm>
#include <utility>

#include "export/BatchFile.h"
#include "lang/TextNumbers.h"
#include "plan/Applying.h"
#include "plan/OpenPlan.h"
#include "plan/PlanFile.h"
#include "plan/PlanWords.h"
#include "plan/Planning.h"
#include "system/Paths.h"

namespace zek {
namespace {

constexpr std::string_view kPrefix = "PLAN";
constexpr std::string_view kPlanFile = ".plan";
constexpr std::string_view kReportFile = ".txt";
constexpr std::string_view kSoFarFile = ".sofar";  // the report of a plan that has not ended

std::string FolderOf(const ZV_Proc& proc) { return proc.settings.ProgramPath + "Plans"; }

}  // namespace

void PlanRun::Add(const PlanLine& line, std::size_t total) {
  lines_.push_back(line);
  total_ = total;
  changed_();
}

void PlanRun::Make(std::span<const ListedChange> changes, const std::vector<std::string>& nodes) {
  if (busy_) return;
  Clear();
  bool cancelled = false;
  Planner planner(proc_, [&](const PlanLine& line) { Add(line, planner.Total()); });
  cancel_ = [&] {
    cancelled = true;
    planner.Cancel();
  };
  busy_ = true;
  Plan plan = planner.Make(changes, nodes);
  busy_ = false;
  cancel_ = [] {};
  if (cancelled || proc_.turn.Quitting()) {
    Clear();
  } else {
    plan_ = std::move(plan);
  }
}

std::string PlanRun::Keep() {
  if (!name_.empty()) return {};
  if (const auto error = proc_.files.MakeDirectory(FolderOf(proc_)))
    return FileMessage(proc_.texts, *error);
  const std::string stem = std::string(kPrefix) + FileStamp(proc_.now());
  std::string name = stem;
  for (int number = 2; proc_.files.Exists(PlanPath(name)); ++number)
    name = stem + "-" + std::to_string(number);
  const auto error = proc_.files.Write(PlanPath(name), BuildPlanFile(plan_));
  if (error) return FileMessage(proc_.texts, *error);
  lock_ = proc_.files.Lock(PlanPath(name)).lock;
  name_ = name;
  return {};
}

std::string PlanRun::Send() {
  if (!CanSend()) return {};
  if (std::string why = Keep(); !why.empty()) return why;
  lock_.reset();
  OpenedPlan opened = OpenPlan(proc_, PlanPath(name_));
  if (!opened.why.empty()) return opened.why;
  lock_ = std::move(opened.lock);
  lines_.clear();
  total_ = opened.plan.catalogues.size();
  Applier applier(proc_, *opened.started, [this](const PlanLine& line) {
    Add(line, total_);
    KeepSoFar();
  });
  cancel_ = [&applier] { applier.Cancel(); };
  busy_ = true;
  applier.Run(opened.plan);
  busy_ = false;
  cancel_ = [] {};
  return HasEnded() ? StoreReport(name_, Report(DateAndTime(proc_.now()))) : std::string();
}

std::string PlanRun::Take(const std::string& name) {
  Clear();
  OpenedPlan opened = OpenPlan(proc_, PlanPath(name));
  if (!opened.why.empty()) return opened.why;
  lock_ = std::move(opened.lock);
  plan_ = std::move(opened.plan);
  name_ = name;
  total_ = plan_.catalogues.size();
  for (const PlannedCatalogue& each : plan_.catalogues)
    lines_.push_back({PlanWord::Change, each.Node(), KindText(each.kind), 0, 0, "", ""});
  return {};
}

void PlanRun::Drop() {
  if (name_.empty() || HasBegun()) return;
  lock_.reset();
  static_cast<void>(proc_.files.Remove(PlanPath(name_)));
  name_.clear();
}

// A plan that was interrupted or cancelled, in this window or an earlier one.
bool PlanRun::HasBegun() const {
  return proc_.files.Exists(StartedNote::PathOf(PlanPath(name_))) ||
         proc_.files.Exists(PathOf(name_) + std::string(kSoFarFile));
}

std::string PlanRun::GiveUp(const std::string& name) {
  Clear();
  const OpenedPlan opened = OpenPlan(proc_, PlanPath(name));
  if (!opened.lock) return opened.why;
  plan_ = opened.plan;
  FileContent soFar = proc_.files.Read(PathOf(name) + std::string(kSoFarFile));
  if (soFar.error && soFar.error->reason != FileError::Reason::Missing) {
    Clear();
    return FileMessage(proc_.texts, *soFar.error);  // it alone tells what was sent
  }
  std::string report = soFar.error ? ReportSoFar() : std::move(soFar.bytes);
  for (const PlannedCatalogue& each : plan_.catalogues) {
    if (opened.started && opened.started->Before(each) != nullptr)
      report += Row({PlanWord::Failed, each.Node(), KindText(each.kind), 0, 0, "",
                     proc_.Text(text::kPlanInterrupted)});
  }
  Clear();
  return StoreReport(name, report);
}

void PlanRun::Clear() {
  plan_ = {};
  lock_.reset();
  name_.clear();
  lines_.clear();
  total_ = 0;
}

std::vector<std::string> PlanRun::OpenPlans() const {
  std::vector<std::string> open;
  for (std::string name : proc_.files.List(PathOf({}))) {
    if (!name.starts_with(kPrefix) || !name.ends_with(kPlanFile)) continue;
    name.resize(name.size() - kPlanFile.size());
    const bool ended = proc_.files.Exists(PathOf(name) + std::string(kReportFile));
    if (!ended && !IsElsewhere(name)) open.push_back(name);
  }
  return open;
}

bool PlanRun::IsElsewhere(const std::string& name) const {
  if (lock_ && name == name_) return false;
  const TakenLock taken = proc_.files.Lock(PlanPath(name));
  return taken.error && taken.error->reason == FileError::Reason::InUse;
}

// "PLAN261122_083000"
std::string PlanRun::TimeOf(const std::string& name) {
  constexpr std::size_t length = 17;
  if (name.size() < length) return name;
  const auto part = [&name](std::size_t at) { return name.substr(at, 2); };
  return "20" + part(4) + "-" + part(6) + "-" + part(8) + " " + part(11) + ":" + part(13) + ":" +
         part(15);
}

std::size_t PlanRun::Count(PlanWord word) const {
  return static_cast<std::size_t>(std::count_if(
      lines_.begin(), lines_.end(), [word](const PlanLine& line) { return line.word == word; }));
}

// A second try does not mend what is stale or refused.
bool PlanRun::HasEnded() const {
  return lines_.size() == plan_.catalogues.size() && Count(PlanWord::Failed) == 0 &&
         Count(PlanWord::Untried) == 0;
}

std::string PlanRun::Report(const std::string& headline) const {
  std::string report = SeveralTitle(proc_.texts) + "\r\n" + headline + "\r\n";
  for (const PlanLine& line : lines_) report += Row(line);
  return report;
}

std::string PlanRun::Row(const PlanLine& line) const {
  return ResultOf(line, proc_.texts) + "\t" + line.node + "\t" + CatalogueOf(line, proc_.texts) +
         "\t" + RemarkOf(line, proc_.texts) + "\r\n";
}

// Of the catalogues that have ended, and of the others that they were not tried.
std::string PlanRun::ReportSoFar() const {
  std::string report = Report(DateAndTime(proc_.now()));
  for (std::size_t at = lines_.size(); at < plan_.catalogues.size(); ++at) {
    const PlannedCatalogue& each = plan_.catalogues[at];
    report += Row({PlanWord::Untried, each.Node(), KindText(each.kind), 0, 0, "", ""});
  }
  return report;
}

// Without it, after a crash nobody could tell what was sent. The plan goes on if it can't be
// stored.
void PlanRun::KeepSoFar() {
  static_cast<void>(proc_.files.Write(PathOf(name_) + std::string(kSoFarFile), ReportSoFar()));
}

std::string PlanRun::PathOf(const std::string& name) const {
  return WithSeparator(FolderOf(proc_)) + name;
}

std::string PlanRun::PlanPath(const std::string& name) const {
  return PathOf(name) + std::string(kPlanFile);
}

std::string PlanRun::StoreReport(const std::string& name, const std::string& report) {
  const auto error = proc_.files.Write(PathOf(name) + std::string(kReportFile), report);
  if (error) return FileMessage(proc_.texts, *error);
  static_cast<void>(proc_.files.Remove(PathOf(name) + std::string(kSoFarFile)));
  return {};
}

std::string SeveralTitle(const LanguageTexts& texts) {
  std::string title = texts.Text(text::kSeveralMenu);
  std::erase(title, '&');
  return title.substr(0, title.find("..."));
}

}  // namespace zek
