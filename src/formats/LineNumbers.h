#pragma once

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

/// The columns of a line's number, counted from 1.
enum class NumberColumns {
  Right,      // 1 to 5, right-aligned
  Left,       // 1 to 5, left-aligned
  LeftOfPlt,  // 2 to 5, left-aligned
};

/// Returns a line with another number; everything from column 7 on (or from an earlier "!") stays.
std::string WithLineNumber(std::string_view line, int number, NumberColumns columns);

/// Numbers the lines of a time control.
class LineNumbers {
 public:
  /// `taken` are the numbers of other lines.
  LineNumbers(int first, std::vector<int> taken);

  /// Returns the number of the next line: the smallest one after the last one that is not taken.
  int Next();

 private:
  std::vector<int> taken_;  // sorted
  std::size_t passed_ = 0;  // those of `taken_` that are below `next_`
  int next_;
};

}  // namespace zek
