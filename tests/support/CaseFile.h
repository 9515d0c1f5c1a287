#pragma once

#include <cstddef>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/SourceTree.h"
#include "text/Windows1252.h"

namespace zek::test {

/// One case of a text file in tests/cases. It begins with a head line; "< " precedes each given
/// line and "> " each expected line; ";" begins a comment. "<*201 x" means 201 lines "x". "\x05" is
/// a control character, "\x20" a blank at the end of a line.
struct TextCase {
  std::string head;
  std::vector<std::string> given;
  std::string expected;
};

inline std::string Unescaped(const std::string& utf8) {
  std::string text = Windows1252FromUtf8(utf8);
  for (std::size_t at = 0; (at = text.find("\\x", at)) != std::string::npos; ++at) {
    const int code = std::stoi(text.substr(at + 2, 2), nullptr, 16);
    text.replace(at, 4, 1, static_cast<char>(code));
  }
  return text;
}

inline std::vector<TextCase> CasesOf(const std::string& name) {
  std::vector<TextCase> cases;
  std::ifstream file(SourceTree() + "/tests/cases/" + name);
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == ';') continue;
    std::size_t copies = 1;
    if (line.starts_with("<*")) {
      copies = std::stoul(line.substr(2));
      line.erase(1, line.find(' ') - 1);
    }
    const std::string text = Unescaped(line.substr(std::min<std::size_t>(line.size(), 2)));
    if (line[0] == '<') {
      cases.back().given.insert(cases.back().given.end(), copies, text);
    } else if (line[0] == '>') {
      cases.back().expected += text + "\n";
    } else {
      cases.push_back({line, {}, {}});
    }
  }
  return cases;
}

/// Compares the expected lines of each case in a file with the result of `outcome`.
template <class Outcome>
void CheckCases(const std::string& name, Outcome outcome) {
  const std::vector<TextCase> cases = CasesOf(name);
  EXPECT_FALSE(cases.empty()) << name;
  for (const TextCase& each : cases) {
    const std::string got = outcome(each);
    EXPECT_EQ(got, each.expected) << name << ": " << each.head << ": "
                                  << (each.given.empty() ? "" : each.given.front());
  }
}

}  // namespace zek::test
