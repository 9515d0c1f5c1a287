#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "formats/FormatCases.h"
#include "text/Fields.h"

namespace zek::test {

/// A line of tests/cases/entries.txt: what is typed into a fresh editor, and what comes of it.
struct EntryCase {
  std::string text;
  bool byKeys;
  bool byMouse;
  std::string outcome;
};

/// The lines that begin with the same editor.
struct EntryTable {
  std::string editor;  // "weekday", "exception" or "calendar"
  FormatCase given;    // the catalogue, each line behind "="
  std::vector<EntryCase> entries;
};

inline std::vector<EntryTable> EntryTables() {
  std::vector<EntryTable> tables;
  for (const TextCase& each : CasesOf("entries.txt")) {
    const std::size_t blank = each.head.find(' ');
    EntryTable table{each.head.substr(0, blank), {each.head.substr(blank), {}}, {}};
    std::size_t at = 0;
    for (const std::string& line : each.given) {
      if (line[0] == '=') {
        table.given.lines.push_back(line);
        continue;
      }
      const std::string text(Trim(GetField(line, 0, "|")));
      const std::string_view how = Trim(GetField(line, 1, "|"));
      const std::size_t end = each.expected.find('\n', at);
      const std::string begin = text + " gives ";
      EXPECT_EQ(each.expected.substr(at, begin.size()), begin);
      const std::size_t from = std::min(at + begin.size(), each.expected.size());
      table.entries.push_back({text, how != "mouse alone", how.starts_with("mouse"),
                               each.expected.substr(from, end - from)});
      at = end + 1;
    }
    tables.push_back(table);
  }
  EXPECT_FALSE(tables.empty());
  return tables;
}

}  // namespace zek::test
