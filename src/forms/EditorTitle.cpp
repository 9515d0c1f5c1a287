#include "forms/EditorTitle.h"

#include <map>

#include "catalogue/ObjectTree.h"
#include "formats/LineOwner.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

std::int32_t KindText(Catalogue catalogue) {
  switch (catalogue) {
    case Catalogue::Sdc:
      return text::kTitleCalendar;
    case Catalogue::Ovc:
      return text::kTitleExceptions;
    case Catalogue::Wdc:
      break;
  }
  return text::kTitleWeekdays;
}

// "Ventilation aula [AHU1]" of "Skolan/DUC 1/Ventilation aula [AHU1]".
std::string ControlText(const ZV_Proc& proc, const Topic& object) {
  const std::string& name = proc.selection.TscName;
  const auto node = FindNode(proc.tree, proc.topics, object.TopicName + "/" + name);
  if (!node) return name;
  const std::string& text = proc.tree.at(*node).Text;
  const std::size_t slash = text.rfind('/', text.rfind('['));
  return std::string(Trim(slash == std::string::npos ? text : text.substr(slash + 1)));
}

}  // namespace

std::string EditorTitle(const ZV_Proc& proc, Catalogue catalogue, bool viewOnly) {
  const Topic& object = proc.topics[proc.selection.CurrentObject];
  const bool ofControl = catalogue != Catalogue::Sdc && !proc.selection.TscName.empty();
  std::string title = proc.settings.Demo ? "DEMO - " : "";
  title += proc.Text(KindText(catalogue)) + ": ";
  if (ofControl) title += ControlText(proc, object) + ", ";
  title += object.Description;
  if (!ofControl) title += " [" + object.TopicName + "], " + proc.Text(text::kTitleAllControls);
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
