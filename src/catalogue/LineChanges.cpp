#include "catalogue/LineChanges.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <set>

#include "formats/CatalogueLine.h"
#include "formats/LineNumbers.h"
#include "text/Controls.h"

namespace zek {
namespace {

// The fields after the number, without padding.
std::string FieldsOf(std::string_view line) {
  const std::size_t digits = std::min(line.find_first_not_of(' '), line.size());
  std::string_view rest =
      line.substr(std::min(line.find_first_not_of("0123456789", digits), line.size()));
  std::string fields;
  while (!rest.empty()) fields.append(TakeField(rest)).append(kFieldMark);
  return fields;
}

std::set<int> NumbersOf(std::span<const std::string> lines) {
  std::set<int> numbers;
  for (const std::string& line : lines) numbers.insert(LineNumber(line));
  return numbers;
}

bool IsStarred(const std::string& line) { return line.find('*') != std::string::npos; }

}  // namespace

std::string ComparableLine(std::string_view line) {
  return std::to_string(LineNumber(line)) + " " + FieldsOf(line);
}

FoundAgain FindAgain(std::span<const std::string> lines, std::span<const std::string> listing) {
  std::multimap<int, const std::string*> there;
  for (const std::string& line : listing) there.emplace(LineNumber(line), &line);
  FoundAgain found;
  for (const std::string& line : lines) {
    const auto [first, last] = there.equal_range(LineNumber(line));
    if (first == last) {
      found.missing.push_back(line);
    } else if (std::none_of(first, last, [&line](const auto& each) {
                 return ComparableLine(*each.second) == ComparableLine(line);
               })) {
      found.different.push_back({line, *first->second});
    }
  }
  return found;
}

std::vector<std::string> LeftBehind(std::span<const std::string> old,
                                    std::span<const std::string> sent) {
  const std::set<int> numbers = NumbersOf(sent);
  std::vector<std::string> left;
  std::copy_if(old.begin(), old.end(), std::back_inserter(left), [&numbers](const auto& line) {
    const int number = LineNumber(line);
    return number > 0 && !numbers.contains(number);
  });
  return left;
}

bool RemovesOrRenumbers(std::span<const std::string> old, std::span<const std::string> sent) {
  if (!LeftBehind(old, sent).empty()) return true;
  std::set<std::string> lines;
  std::set<std::string> fields;
  for (const std::string& line : sent) {
    lines.insert(ComparableLine(line));
    fields.insert(FieldsOf(line));
  }
  return std::any_of(old.begin(), old.end(), [&](const std::string& line) {
    return !lines.contains(ComparableLine(line)) && fields.contains(FieldsOf(line));
  });
}

std::vector<std::string> WithoutStarred(std::span<const std::string> lines) {
  std::vector<std::string> kept;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(kept), std::not_fn(IsStarred));
  return kept;
}

std::vector<std::string> StarredOf(std::span<const std::string> lines) {
  std::vector<std::string> starred;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(starred), IsStarred);
  return starred;
}

std::vector<std::string> Joined(std::vector<std::string> first,
                                std::span<const std::string> second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

std::string OnLines(std::span<const std::string> lines) {
  std::string text;
  for (std::string line : lines) {
    ShowControls(line);
    text.append(line).append("\r\n");
  }
  return text;
}

}  // namespace zek
