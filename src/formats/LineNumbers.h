#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zek {

inline constexpr int kFirstLineNumber = 1000;
inline constexpr int kLargestLineNumber = 32767;    // 16 bits
inline constexpr int kLargestPltLineNumber = 9999;  // the four columns of the "PLT" layout

/// True for a time control whose catalogues have the "PLT" layout: its name begins with "PLT" in
/// any case.
bool IsPltName(std::string_view name);

/// The number behind "PLT" (PLT12 gives 12); 0 when there is none. Limited to one million.
int PltNumber(std::string_view name);

/// Where the line numbers of a time control start when its old lines don't tell: the digits of
/// a "PLT" name times 100 plus 1 (without digits, or for 0, 1000), else 1000.
int FirstLineNumber(std::string_view name);

/// The number in the first 6 characters of a catalogue line, 0 when there is none. Limited to one
/// million either way, so that numbers that are too large stay recognisable as such.
int LineNumber(std::string_view line);

/// Gives the lines that are appended to a catalogue their numbers.
class LineNumbers {
 public:
  LineNumbers(int first, std::span<const std::string> linesBefore);

  /// The number of the next line: the one given out last, compared once with each line that is
  /// there by now, in their order, and raised by 1 whenever they are equal.
  int Next();

 private:
  std::vector<int> before_;
  int next_;
  std::optional<int> last_;  // given out
};

}  // namespace zek
