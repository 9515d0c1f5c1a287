#include "text/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "text/Fields.h"

namespace zek {
namespace {

struct Leading {
  double value = 0;
  std::size_t length = 0;  // of the parsed text, leading blanks included
};

constexpr std::ptrdiff_t kExactDigits = 15;  // a double represents that many digits exactly

// Fast path: most fields of a catalogue line are plain digits.
const char* TakeDigits(const char* first, const char* last, double& value) {
  std::int64_t digits = 0;
  const char* at = first;
  for (; at != last && at - first < kExactDigits && *at >= '0' && *at <= '9'; ++at) {
    digits = digits * 10 + (*at - '0');
  }
  value = static_cast<double>(digits);
  return at;
}

Leading LeadingNumber(std::string_view text) {
  const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
  const char* first = text.data() + start;
  const char* const last = text.data() + text.size();
  const bool negative = first != last && *first == '-';
  if (first != last && (*first == '-' || *first == '+')) ++first;
  // from_chars would also parse "inf" and "nan", which no controller sends as a number.
  if (first == last || !((*first >= '0' && *first <= '9') || *first == '.')) return {};
  double magnitude = 0;
  const char* const digitsEnd = TakeDigits(first, last, magnitude);
  const bool more =
      digitsEnd != last && (*digitsEnd == '.' || *digitsEnd == 'e' || *digitsEnd == 'E' ||
                            (*digitsEnd >= '0' && *digitsEnd <= '9'));
  if (!more) {
    return {negative ? -magnitude : magnitude, static_cast<std::size_t>(digitsEnd - text.data())};
  }
  const auto [end, error] = std::from_chars(first, last, magnitude);
  if (error == std::errc::invalid_argument) return {};
  if (error == std::errc::result_out_of_range) {
    const std::string_view digits(first, static_cast<std::size_t>(end - first));
    const bool tiny = digits.find_first_of("123456789") > digits.find('.') ||
                      digits.find("e-") != std::string_view::npos ||
                      digits.find("E-") != std::string_view::npos;
    magnitude = tiny ? 0 : std::numeric_limits<double>::max();
  }
  return {negative ? -magnitude : magnitude, static_cast<std::size_t>(end - text.data())};
}

}  // namespace

double Val(std::string_view text) { return LeadingNumber(text).value; }

bool IsNumeric(std::string_view text) {
  const Leading number = LeadingNumber(text);
  return number.length > 0 && Trim(text.substr(number.length)).empty();
}

std::optional<std::int16_t> ToInt16(double value) {
  // Nearly all values are whole numbers, which need no call of the rounding function.
  if (std::abs(value) < 32768 && value == static_cast<std::int16_t>(value)) {
    return static_cast<std::int16_t>(value);
  }
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -32768 && rounded <= 32767)) return std::nullopt;
  return static_cast<std::int16_t>(rounded);
}

float ToSingle(double value) {
  constexpr double limit = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(value, -limit, limit));
}

double ParseNumber(std::string_view text) {
  if (text.find(',') == std::string_view::npos) return Val(text);
  std::string withPoints(text);
  std::replace(withPoints.begin(), withPoints.end(), ',', '.');
  return Val(withPoints);
}

std::string FormatNumber(double value, char decimalSeparator) {
  // Most values are whole numbers (-0 included); formatting them as such is eight times as fast.
  constexpr double exponentFrom = 1e7;
  if (std::abs(value) < exponentFrom && value == std::trunc(value)) {
    return std::to_string(static_cast<int>(value));
  }
  std::array<char, 32> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                          std::chars_format::general, 7);
  std::string text(digits.data(), end);
  std::replace(text.begin(), text.end(), 'e', 'E');
  std::replace(text.begin(), text.end(), '.', decimalSeparator);
  return text;
}

std::string ZeroPadded(int number, std::size_t width) {
  const std::string digits = std::to_string(std::max(number, 0));
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

}  // namespace zek
