#include "editors/PickList.h"

#include "formats/CatalogueFields.h"
#include "lang/Messages.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {
constexpr std::size_t kTableBuffer = 2048;
constexpr std::string_view kDefaultName = "Default";
}  // namespace

bool PickListItem::IsIn(std::string_view boxText) const {
  if (value == kNoValueText && boxText.empty()) return true;
  return EqualNoCase(value, boxText) || EqualNoCase(name, boxText);
}

PickList ReadPickList(const Profile& profile, std::int32_t table, char decimalSeparator) {
  if (table == 0) return {};
  PickList list;
  list.section = "TXI_" + std::to_string(table);
  ProfileSection section = profile.ReadSection(list.section, kTableBuffer);
  if (section.cut) {
    list.cutLength = section.length;
    if (!section.entries.empty()) section.entries.pop_back();
  }
  list.items.push_back({std::string(kDefaultName), std::string(kNoValueText)});
  for (const std::string& entry : section.entries) {
    const std::size_t equals = entry.find('=');
    if (entry.starts_with(';') || equals == std::string::npos) continue;
    const double value = Val(std::string_view(entry).substr(equals + 1));
    list.items.push_back({entry.substr(0, equals), FormatNumber(value, decimalSeparator)});
  }
  return list;
}

PickList WithoutDefault(PickList list) {
  if (!list.items.empty()) list.items.erase(list.items.begin());
  return list;
}

void TellCut(const PickList& list, Prompts& prompts, const LanguageTexts& texts) {
  if (list.cutLength == 0) return;
  prompts.Show(Icon::Information, SectionCutMessage(texts, list.section, list.cutLength));
}

}  // namespace zek
