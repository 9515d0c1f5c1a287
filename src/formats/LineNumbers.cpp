#include "formats/LineNumbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "formats/CatalogueLine.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr std::string_view kPlt = "PLT";
constexpr std::size_t kNumberColumns = 6;
constexpr double kNumberLimit = 1'000'000;

int LimitedInt(double value) {
  return static_cast<int>(std::clamp(std::nearbyint(value), -kNumberLimit, kNumberLimit));
}

}  // namespace

bool IsPltName(std::string_view name) { return EqualNoCase(name.substr(0, kPlt.size()), kPlt); }

int PltNumber(std::string_view name) {
  if (!IsPltName(name)) return 0;
  const std::string_view rest = Trim(name.substr(kPlt.size()));
  // Only the digits count: a point, a sign or an exponent is part of the name.
  return LimitedInt(Val(rest.substr(0, rest.find_first_not_of("0123456789"))));
}

int FirstLineNumber(std::string_view name) {
  const int plt = PltNumber(name);
  return plt == 0 ? kFirstLineNumber : plt * 100 + 1;
}

int LineNumber(std::string_view line) { return LimitedInt(Val(line.substr(0, kNumberColumns))); }

std::string WithLineNumber(std::string_view line, int number, NumberColumns columns) {
  std::string numbered(kNumberColumns, ' ');
  if (columns == NumberColumns::Right) {
    PutNumberBefore(numbered, kNumberWidth, number);
  } else {
    Put(numbered, columns == NumberColumns::LeftOfPlt ? 1 : 0, std::to_string(number));
  }
  return numbered.append(FromColumn(line, std::min(line.find(kFieldMark), kNumberColumns)));
}

LineNumbers::LineNumbers(int first, std::vector<int> taken)
    : taken_(std::move(taken)), next_(first) {
  std::sort(taken_.begin(), taken_.end());
}

int LineNumbers::Next() {
  for (; passed_ < taken_.size() && taken_[passed_] <= next_; ++passed_)
    if (taken_[passed_] == next_) ++next_;
  return next_++;
}

}  // namespace zek
