#include "import/ImportText.h"

#include <algorithm>

#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Fields.h"
#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

bool IsTextCharacter(char character) {
  return character == '\t' || character == '\r' || character == '\n' ||
         static_cast<unsigned char>(character) >= ' ';
}

int NumberOf(std::string_view digits) {
  int number = 0;
  for (const char digit : digits) number = number * 10 + (digit - '0');
  return number;
}

}  // namespace

ImportReason CheckImportText(std::string_view bytes) {
  if (bytes.size() > kLargestImport) return {text::kImportTooLarge};
  if (!std::all_of(bytes.begin(), bytes.end(), IsTextCharacter)) return {text::kImportNotText};
  for (int number = 1; !bytes.empty(); ++number)
    if (TakeLine(bytes).size() > kLongestImportLine)
      return {text::kImportLineTooLong, std::to_string(number)};
  return {};
}

std::string DecodedText(std::string_view bytes) {
  bytes = WithoutUtf8Mark(bytes);
  return IsUtf8(bytes) ? Windows1252FromUtf8(bytes) : std::string(bytes);
}

std::string ImportName(std::string_view name) {
  constexpr std::size_t longest = 80;
  std::string line(name.substr(0, 4 * longest));
  std::replace_if(
      line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return Shortened(Trim(line), longest);
}

std::optional<CalendarDate> DateDigits(std::string_view digits) {
  constexpr std::size_t length = 8;
  if (digits.size() != length || digits.find_first_not_of("0123456789") != std::string_view::npos)
    return std::nullopt;
  return CalendarDate{NumberOf(digits.substr(0, 4)), NumberOf(digits.substr(4, 2)) - 1,
                      NumberOf(digits.substr(6))};
}

void DateTaker::Take(const CalendarDate& date, std::int16_t type, const std::string& name) {
  const std::int32_t key = ImportKey(date);
  if (key < window_.first || (key > window_.last && window_.lastIsAsked)) return;
  if (window_.years.Has(date.year)) {
    to_.dates.push_back({date, type, name});
    return;
  }
  const bool told = !to_.skipped.empty() && to_.skipped.back().name == name &&
                    to_.skipped.back().reason.text == text::kImportYear;
  if (!told) Skip({text::kImportYear}, name);
}

void DateTaker::Refuse() {
  to_ = {};
  to_.refused = {text::kImportTooMany, std::to_string(kMostImported)};
}

}  // namespace zek
