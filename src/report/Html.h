#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zek {

/// Returns an element with text of the core (windows-1252) inside, UTF-8.
std::string HtmlElement(std::string_view name, std::string_view text);

/// A table of a page. On paper its heading is on every page, and no row is cut.
class HtmlTable {
 public:
  /// `caption` says what the table has; the texts are windows-1252.
  HtmlTable(std::string_view caption, const std::vector<std::string>& headings);

  void Add(const std::vector<std::string>& row);

  bool IsEmpty() const { return rows_.empty(); }

  /// The whole element; with `otherwise` as its text if there is no row.
  std::string Text(std::string_view otherwise) const;

 private:
  std::string caption_;
  std::string head_;
  std::string rows_;
};

}  // namespace zek
