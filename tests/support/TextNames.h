#pragma once

#include <cstdint>
#include <fstream>
#include <map>
#include <regex>
#include <string>

namespace zek::test {

/// The name of a text number in lang/TextNumbers.h, "kCatalogueFull"; the digits of one without.
inline std::string TextName(std::int32_t number) {
  static const std::map<int, std::string> names = [] {
    std::map<int, std::string> read;
    std::ifstream file(ZEKVIEW_TEXT_NUMBERS);
    const std::regex definition(R"(.* (k\w+) = (\d+);.*)");
    std::smatch match;
    for (std::string line; std::getline(file, line);)
      if (std::regex_match(line, match, definition)) read[std::stoi(match[2])] = match[1];
    return read;
  }();
  const auto found = names.find(number);
  return found == names.end() ? std::to_string(number) : found->second;
}

}  // namespace zek::test
