#include "lang/LanguageTexts.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "lang/BuiltInTexts.h"
#include "text/Fields.h"
#include "text/Lines.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr std::size_t kFirstRows = 65;
constexpr std::string_view kFileStem = "ZEK_LANG.";
constexpr double kLargestNumber = 2147483647;

// The language's own name: what follows "0=" on the first line that has more than that.
std::string NameOf(std::string_view file) {
  while (!file.empty()) {
    const std::string_view line = TakeLine(file);
    if (line.starts_with("0=") && line.size() > 2) return std::string(line.substr(2));
  }
  return {};
}

}  // namespace

void LanguageTexts::Read(std::string_view file) {
  rows_.clear();
  rows_.reserve(kFirstRows);
  pool_.clear();
  while (!file.empty()) {
    const std::string_view line = TakeLine(file);
    if (line.find('=') == std::string_view::npos) continue;
    const double number = Val(GetField(line, 0, "="));
    if (number < 0 || number > kLargestNumber) continue;
    const std::string_view text = GetField(line, 1, "=");
    rows_.push_back({static_cast<std::int32_t>(number), static_cast<std::uint32_t>(pool_.size()),
                     static_cast<std::uint32_t>(text.size())});
    pool_ += text;
  }
}

std::string LanguageTexts::Text(std::int32_t number) const {
  const auto row = std::find_if(rows_.begin(), rows_.end(),
                                [number](const Row& each) { return each.number == number; });
  if (row != rows_.end()) return pool_.substr(row->start, row->length);
  if (const auto builtIn = BuiltInText(number)) return std::string(*builtIn);
  return "Invalid Text (" + std::to_string(number) + ")";
}

std::vector<LanguageChoice> ListLanguages(const Files& files, const std::string& directory) {
  std::vector<LanguageChoice> choices;
  for (const std::string& name : files.List(directory)) {
    if (name.size() != kFileStem.size() + 3) continue;
    if (!EqualNoCase(name.substr(0, kFileStem.size()), kFileStem)) continue;
    const std::string extension = name.substr(kFileStem.size());
    if (!IsNumeric(extension)) continue;
    const std::string language = NameOf(files.Read(directory + name).bytes);
    if (!language.empty()) choices.push_back({static_cast<int>(Val(extension)), language});
  }
  return choices;
}

std::string LanguageFileName(int number) {
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "%03d", number);
  return std::string("zek_lang.") + digits.data();
}

}  // namespace zek
