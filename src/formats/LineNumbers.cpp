#include "formats/LineNumbers.h"

#include <algorithm>
#include <cmath>

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

LineNumbers::LineNumbers(int first, std::span<const std::string> linesBefore) : next_(first) {
  before_.reserve(linesBefore.size());
  for (const std::string& line : linesBefore) before_.push_back(LineNumber(line));
}

int LineNumbers::Next() {
  for (const int number : before_) {
    if (number == next_) ++next_;
  }
  // The numbers of the appended lines increase, so only the last one can be equal.
  if (next_ == last_) ++next_;
  last_ = next_;
  return next_;
}

}  // namespace zek
