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

/// True for a time control whose catalogues have the "PLT" layout: its name begins with "PLT", in
/// upper or lower case.
bool IsPltName(std::string_view name);

/// Returns the number after "PLT" (12 for PLT12); 0 without a number. Limited to one million.
int PltNumber(std::string_view name);

/// Returns the first line number of a time control if its old lines do not give one: the digits of
/// a "PLT" name times 100 plus 1 (1000 without digits or for 0), else 1000.
int FirstLineNumber(std::string_view name);

/// Returns the number in the first 6 characters of a catalogue line, 0 without a number. Limited to
/// plus or minus one million, so that a number that is too large can be recognised.
int LineNumber(std::string_view line);

/// Numbers the lines that are appended to a catalogue.
class LineNumbers {
 public:
  LineNumbers(int first, std::span<const std::string> linesBefore);

  /// Returns the number of the next line. It starts from the last number returned, is compared once
  /// with each line present so far, in their order, and increases by 1 at each match.
  int Next();

 private:
  std::vector<int> before_;
  int next_;
  std::optional<int> last_;  // the last number returned
};

}  // namespace zek
