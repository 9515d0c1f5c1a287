#include "forms/EditorTitle.h"

#include <map>

#include "catalogue/CatalogueTitle.h"
#include "formats/LineOwner.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {

std::string EditorTitle(const ZV_Proc& proc, Catalogue catalogue, bool viewOnly) {
  std::string title = proc.settings.Demo ? "DEMO - " : "";
  title += CatalogueTitle(proc.selection.Id(catalogue), proc.tree, proc.topics, proc.texts);
  if (viewOnly) title += " (" + proc.Text(text::kTitleViewOnly) + ")";
  if (proc.settings.LocalMode) title += " (" + proc.Text(text::kTitleLocal) + ")";
  return title;
}

std::string WholeCatalogueText(const ZV_Proc& proc, const CatalogueContent& content) {
  if (!proc.selection.TscName.empty()) return {};
  const WeekdayOwners owners(content.lines, proc.selection.Id(Catalogue::Wdc).Owner());
  std::map<std::string, int> counts;
  for (const std::string& line : content.lines) ++counts[std::string(owners.Of(line))];
  std::string controls;
  for (const auto& [name, count] : counts) {
    if (!controls.empty()) controls += ", ";
    controls += (name.empty() ? proc.Text(text::kNamelessLines) : name) + " (" +
                std::to_string(count) + ")";
  }
  const std::string& object = proc.topics[proc.selection.CurrentObject].TopicName;
  return Message(proc.Text(text::kWholeCatalogue), {object, controls.empty() ? "-" : controls});
}

}  // namespace zek
