#include "editors/PickList.h"

#include <algorithm>

#include "formats/CatalogueFields.h"
#include "lang/Messages.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {
constexpr std::size_t kTableBuffer = 2048;
constexpr std::string_view kDefaultName = "Default";

float ValueOf(std::string_view number) {
  return number == kNoValueText ? kNoValue : ToSingle(ParseNumber(number));
}

const PickListItem* ItemOf(const std::string& value, const PickList& list) {
  const auto found = std::find_if(list.items.begin(), list.items.end(),
                                  [&](const PickListItem& item) { return item.value == value; });
  return found == list.items.end() ? nullptr : &*found;
}

const PickListItem* ItemNamed(std::string_view text, const PickList& list) {
  const PickListItem* begins = nullptr;
  bool several = false;
  for (const PickListItem& item : list.items) {
    const std::string_view name = Trim(item.name);
    if (EqualNoCase(name, text)) return &item;
    if (!EqualNoCase(name.substr(0, text.size()), text)) continue;
    several = begins != nullptr;
    begins = &item;
  }
  return several ? nullptr : begins;
}
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

std::optional<float> TypedValue(std::string_view text, const PickList& list) {
  text = Trim(text);
  if (text == "." || text == ",") return kNoValue;
  if (text.empty()) return std::nullopt;
  std::string number(text);
  std::replace(number.begin(), number.end(), ',', '.');
  if (IsNumeric(number)) return ValueOf(number);
  const PickListItem* const item = ItemNamed(text, list);
  return item == nullptr ? std::nullopt : std::optional(ValueOf(item->value));
}

std::string WithName(const std::string& value, const PickList& list) {
  const PickListItem* const item = ItemOf(value, list);
  return item == nullptr ? value : value + " " + item->name;
}

bool IsOutside(const std::string& value, const PickList& list) {
  const bool named = std::any_of(list.items.begin(), list.items.end(),
                                 [](const auto& item) { return item.value != kNoValueText; });
  return named && ItemOf(value, list) == nullptr;
}

void TellCut(const PickList& list, Prompts& prompts, const LanguageTexts& texts) {
  if (list.cutLength == 0) return;
  prompts.Show(Icon::Information, SectionCutMessage(texts, list.section, list.cutLength));
}

}  // namespace zek
