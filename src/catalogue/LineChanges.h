#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zek {

/// Returns a catalogue line as its number and its fields without padding: equal for lines that a
/// controller treats alike.
std::string ComparableLine(std::string_view line);

/// A line of one number in two listings.
struct LinePair {
  std::string before;
  std::string after;
};

/// How `lines` are found again in a listing, by number.
struct FoundAgain {
  std::vector<std::string> missing;  // no line of the listing has the number
  std::vector<LinePair> different;   // a line has the number and says something else
};
FoundAgain FindAgain(std::span<const std::string> lines, std::span<const std::string> listing);

/// Returns the lines of `old` whose number no line of `sent` has. A controller that replaces by
/// number keeps them.
std::vector<std::string> LeftBehind(std::span<const std::string> old,
                                    std::span<const std::string> sent);

/// True if a line of `old` is not sent any more or has another number now.
bool RemovesOrRenumbers(std::span<const std::string> old, std::span<const std::string> sent);

/// Returns the lines without those that have a "*": saving leaves them out.
std::vector<std::string> WithoutStarred(std::span<const std::string> lines);

/// Returns the other lines.
std::vector<std::string> StarredOf(std::span<const std::string> lines);

/// Returns both, the first lines first.
std::vector<std::string> Joined(std::vector<std::string> first,
                                std::span<const std::string> second);

/// Returns the lines as one text to be shown, each with CR LF and without control characters.
std::string OnLines(std::span<const std::string> lines);

}  // namespace zek
