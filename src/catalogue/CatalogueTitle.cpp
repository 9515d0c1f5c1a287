#include "catalogue/CatalogueTitle.h"

#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

// "Ventilation aula [AHU1]" of "Skolan/DUC 1/Ventilation aula [AHU1]".
std::string ControlText(const CatalogueId& id, const ObjectTree& tree, const TopicTable& topics) {
  const auto node = FindNode(tree, topics, id.topic + "/" + id.control);
  if (!node) return id.control;
  const std::string& text = tree.at(*node).Text;
  const std::size_t slash = text.rfind('/', text.rfind('['));
  return std::string(Trim(slash == std::string::npos ? text : text.substr(slash + 1)));
}

}  // namespace

std::int32_t KindTitle(Catalogue catalogue) {
  if (catalogue == Catalogue::Wdc) return text::kTitleWeekdays;
  return catalogue == Catalogue::Sdc ? text::kTitleCalendar : text::kTitleExceptions;
}

std::string CatalogueTitle(const CatalogueId& id, const ObjectTree& tree, const TopicTable& topics,
                           const LanguageTexts& texts) {
  const Topic& object = topics[id.object];
  const std::string kind = texts.Text(KindTitle(id.catalogue)) + ": ";
  if (id.catalogue != Catalogue::Sdc && !id.control.empty())
    return kind + ControlText(id, tree, topics) + ", " + object.Description;
  return kind + object.Description + " [" + object.TopicName + "], " +
         texts.Text(text::kTitleAllControls);
}

std::string ShortTitle(const CatalogueId& id, const LanguageTexts& texts) {
  return texts.Text(KindTitle(id.catalogue)) + " " +
         (id.catalogue == Catalogue::Sdc ? id.topic : id.Node());
}

}  // namespace zek
