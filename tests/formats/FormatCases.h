#pragma once

#include <string>
#include <variant>
#include <vector>

#include "formats/BuiltLines.h"
#include "support/CaseFile.h"
#include "support/TextNames.h"
#include "text/Fields.h"

namespace zek::test {

/// A case of a table's format. Its head is a time control's name, followed by options after "|". It
/// uses all given lines together or, with option "each", one at a time.
struct FormatCase {
  std::string head;
  std::vector<std::string> lines;

  std::string Name() const { return std::string(Trim(GetField(head, 0, "|"))); }
  bool Has(const std::string& option) const { return head.find("| " + option) != head.npos; }
  /// The number after an option.
  int Number(const std::string& option) const {
    return std::stoi(head.substr(head.find("| " + option) + 2 + option.size()));
  }
};

inline std::string ErrorText(const BuildError& error) {
  std::string text = "error " + TextName(error.text);
  for (const std::string& value : error.values)
    if (!value.empty()) text += " " + value;
  return text + "\n";
}

/// The built lines, or "the same" if they equal the given ones.
inline std::string BuiltText(const BuiltLines& built, const std::vector<std::string>& given) {
  if (const auto* error = std::get_if<BuildError>(&built)) return ErrorText(*error);
  const auto& lines = std::get<std::vector<std::string>>(built);
  if (lines.size() > 20) return std::to_string(lines.size()) + " lines\n";
  if (lines == given) return "the same\n";
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

template <class Outcome>
void CheckFormat(const std::string& file, Outcome outcome) {
  CheckCases(file, [&](const TextCase& given) {
    if (!FormatCase{given.head, {}}.Has("each")) return outcome({given.head, given.given});
    std::string all;
    for (const std::string& line : given.given) all += outcome({given.head, {line}});
    return all;
  });
}

}  // namespace zek::test
