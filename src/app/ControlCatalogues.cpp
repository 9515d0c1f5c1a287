#include "app/ControlCatalogues.h"

#include <algorithm>

#include "catalogue/CatalogueTitle.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

constexpr const char* kSection = "ForecastRule";

}  // namespace

bool ControlCatalogues::Read() {
  return std::all_of(kShownCatalogues.begin(), kShownCatalogues.end(),
                     [this](Catalogue catalogue) { return Read(catalogue); });
}

bool ControlCatalogues::Read(Catalogue catalogue) {
  std::optional<CatalogueContent>& content = Content(catalogue);
  if (content) return true;
  const CatalogueId id = of_.Id(catalogue);
  if (proc_.settings.LocalMode && !proc_.copies.Exists(id)) {
    missing_.push_back(catalogue);
    content.emplace();
  } else {
    content = proc_.catalogues.GetCatalogue(id);
  }
  return content.has_value();
}

ControlTables ControlCatalogues::Tables() const {
  return ControlTablesOf(proc_, of_,
                         {Content(Catalogue::Wdc).value(), Content(Catalogue::Sdc).value(),
                          Content(Catalogue::Ovc).value()});
}

std::vector<std::string> ControlCatalogues::Remarks() const {
  std::vector<std::string> remarks;
  std::string missing;
  std::size_t dropped = 0;
  for (const Catalogue catalogue : kShownCatalogues) {
    dropped += Content(catalogue).value().linesDropped;
    if (std::find(missing_.begin(), missing_.end(), catalogue) == missing_.end()) continue;
    missing += (missing.empty() ? "" : ", ") + proc_.Text(KindTitle(catalogue));
  }
  if (!missing.empty()) remarks.push_back(Message(proc_.Text(text::kCopiesMissing), {missing}));
  const ControlTables read = Tables();
  const std::size_t unread = read.weekdays.unread.size() + read.calendar.unread.size() +
                             read.exceptions.unread.size() + dropped;
  if (unread > 0) {
    remarks.push_back(Message(proc_.Text(text::kLinesNotCounted), {std::to_string(unread)}));
  }
  return remarks;
}

std::string ControlCatalogues::Unsent(std::optional<Catalogue> edited) const {
  std::string unsent;
  for (const Catalogue catalogue : kShownCatalogues) {
    const auto& content = Content(catalogue);
    const bool copied = content && content->from == LinesFrom::LocalCopy &&
                        proc_.catalogues.HasUnsentChanges(of_.Id(catalogue));
    if (copied || edited == catalogue)
      unsent += (unsent.empty() ? "" : ", ") + proc_.Text(KindTitle(catalogue));
  }
  return unsent;
}

Rule RuleOf(const Profile& profile, const std::string& object) {
  Rule rule;
  if (object.empty()) return rule;
  rule.Set(profile.ReadIni(kSection, object, rule.Text()));
  return rule;
}

std::optional<FileError> KeepRule(Profile& profile, const std::string& object, const Rule& rule) {
  return profile.WriteIni(kSection, object, rule.Text());
}

}  // namespace zek
