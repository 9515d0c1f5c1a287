#include "lang/LanguageTexts.h"

#include "text/Fields.h"
#include "text/Lines.h"
#include "text/Numbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr std::string_view kFileStem = "ZEK_LANG.";
constexpr double kLargestNumber = 2147483647;

// The language's own name: the first text 0 that is not empty.
std::string NameOf(std::string_view file) {
  while (!file.empty()) {
    const std::string_view line = TakeLine(file);
    if (line.starts_with("0=") && line.size() > 2) return std::string(line.substr(2));
  }
  return {};
}

std::string_view BuiltInText(std::int32_t number) {
  switch (number) {
#define ZEK_TEXT(name, number)
#define ZEK_BUILT_IN(name, number, swedish) \
  case number:                              \
    return swedish##_w1252;
#include "lang/Texts.def"
#undef ZEK_TEXT
#undef ZEK_BUILT_IN
    default:
      return {};
  }
}

}  // namespace

void LanguageTexts::Read(std::string_view file) {
  texts_.clear();
  while (!file.empty()) {
    const std::string_view line = TakeLine(file);
    if (line.find('=') == std::string_view::npos) continue;
    const double number = Val(GetField(line, 0, "="));
    if (number < 0 || number > kLargestNumber) continue;
    texts_.emplace(static_cast<std::int32_t>(number), GetField(line, 1, "="));
  }
}

std::string LanguageTexts::Text(std::int32_t number) const {
  if (const auto found = texts_.find(number); found != texts_.end()) return found->second;
  if (const auto builtIn = BuiltInText(number); !builtIn.empty()) return std::string(builtIn);
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

std::string LanguageFileName(int number) { return "zek_lang." + ZeroPadded(number, 3); }

}  // namespace zek
