#pragma once

#include <string>
#include <variant>
#include <vector>

#include "formats/BuiltLines.h"
#include "formats/LineOwner.h"
#include "support/CaseFile.h"
#include "support/TextNames.h"
#include "text/Fields.h"

namespace zek::test {

/// A case of a table's format. Its head is a time control's name and options behind "|"; it comes
/// from the lines that are given, or with option "each" from each of them by itself.
struct FormatCase {
  std::string head;
  std::vector<std::string> lines;

  std::string Name() const { return std::string(Trim(GetField(head, 0, "|"))); }
  bool Has(const std::string& option) const {
    return head.find("| " + option) != std::string::npos;
  }
  /// The number behind an option.
  int Number(const std::string& option) const {
    return std::stoi(head.substr(head.find("| " + option) + 2 + option.size()));
  }
  /// The control with "| ZEK2" or without, and the "PLT" controls behind "| plt".
  LineOwner Owner() const {
    LineOwner owner{Name(), Has("ZEK2") ? Generation::Zek2 : Generation::Zek1, {}};
    for (std::size_t at = head.find("| plt "); at != std::string::npos;
         at = head.find("| plt ", at + 1)) {
      owner.pltControls.emplace_back(Trim(GetField(head.substr(at + 6), 0, "|")));
    }
    return owner;
  }
};

inline std::string ErrorText(const BuildError& error) {
  std::string text = "error " + TextName(error.text);
  for (const std::string& value : error.values)
    if (!value.empty()) text += " " + value;
  return text + "\n";
}

/// What was built; "the same" for the lines that were given.
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
