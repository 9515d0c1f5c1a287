#include "import/CsvDates.h"

#include <algorithm>
#include <optional>

#include "formats/CatalogueFields.h"
#include "import/ImportText.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

struct Record {
  std::vector<std::string> fields;
  bool closed = true;  // false: its last quote is not

  std::string Field(std::size_t at) const { return at < fields.size() ? fields[at] : ""; }
};

// Takes what stands between quotes; two quotes are one. Returns false without a second quote.
bool TakeQuoted(std::string_view& text, std::string& field) {
  text.remove_prefix(1);
  for (;;) {
    const std::size_t quote = text.find('"');
    if (quote == std::string_view::npos) {
      field += text;
      text = {};
      return false;
    }
    field += text.substr(0, quote);
    text.remove_prefix(quote + 1);
    if (!text.starts_with('"')) return true;
    field += '"';
    text.remove_prefix(1);
  }
}

Record TakeRecord(std::string_view& text, char separator) {
  Record record;
  const std::string ends{separator, '\r', '\n'};
  for (;;) {
    std::string field;
    if (text.starts_with('"')) record.closed = TakeQuoted(text, field) && record.closed;
    const std::size_t end = std::min(text.find_first_of(ends), text.size());
    field += text.substr(0, end);
    record.fields.emplace_back(Trim(field));
    text.remove_prefix(end);
    if (!text.starts_with(separator)) break;
    text.remove_prefix(1);
  }
  if (text.starts_with('\r')) text.remove_prefix(1);
  if (text.starts_with('\n')) text.remove_prefix(1);
  return record;
}

char SeparatorOf(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  for (const char separator : {'\t', ';'})
    if (line.find(separator) != std::string_view::npos) return separator;
  return ',';
}

bool IsIsoDate(const std::string& field) {
  return field.size() == 10 && field[4] == '-' && field[7] == '-';
}

std::optional<CalendarDate> IsoDateIn(const std::string& field) {
  if (!IsIsoDate(field)) return std::nullopt;
  return DateDigits(field.substr(0, 4) + field.substr(5, 2) + field.substr(8));
}

std::int16_t TypeIn(const std::string& field) {
  const std::string key = UpperCase(field);
  const auto* const found = std::find(kDayKeys.begin(), kDayKeys.end(), key);
  return found == kDayKeys.end() ? kNoDayType
                                 : static_cast<std::int16_t>(found - kDayKeys.begin() + 1);
}

// A day type, or what was meant as one.
bool LooksLikeType(const std::string& field) {
  return TypeIn(field) != kNoDayType ||
         (field.size() > 2 && EqualNoCase(field.substr(0, 2), "SD") &&
          field.find_first_not_of("0123456789", 2) == std::string::npos);
}

constexpr std::size_t kNowhere = 1000000;

class CsvReader {
 public:
  explicit CsvReader(DateTaker& taker) : taker_(taker) {}

  void Row(const Record& record) {
    const bool empty = std::all_of(record.fields.begin(), record.fields.end(),
                                   [](const std::string& field) { return field.empty(); });
    if (empty || (first_ && record.closed && TakeHeadings(record))) return;
    first_ = false;
    Place(record);
    TakeRow(record);
  }

 private:
  static bool IsOneOf(const std::string& field, std::initializer_list<std::string_view> words) {
    return std::any_of(words.begin(), words.end(),
                       [&field](std::string_view word) { return EqualNoCase(field, word); });
  }

  bool TakeHeadings(const Record& record) {
    for (std::size_t at = 0; at < record.fields.size(); ++at) {
      const std::string& field = record.fields[at];
      if (IsOneOf(field, {"date", "datum"})) date_ = at;
      if (IsOneOf(field, {"type", "typ", "day type", "dagtyp"})) type_ = at;
      if (IsOneOf(field, {"name", "namn", "helgdag", "holiday", "benämning"_w1252})) name_ = at;
    }
    headed_ = date_ != kNowhere;
    first_ = false;
    return headed_;
  }

  // Without headings: date, type, name. A single field after the date is what it looks like.
  void Place(const Record& record) {
    if (headed_) return;
    date_ = 0;
    type_ = 1;
    name_ = 2;
    const bool several = record.fields.size() > 2;
    if (several ? LooksLikeType(record.fields[2]) && !LooksLikeType(record.fields[1])
                : !LooksLikeType(record.Field(1)))
      std::swap(type_, name_);
  }

  void TakeRow(const Record& record) {
    const std::string field = record.Field(date_);
    const std::optional<CalendarDate> date = IsoDateIn(field);
    const std::string type = record.Field(type_);
    std::string name = ImportName(record.Field(name_));
    const ImportReason reason{!record.closed                                ? text::kImportBadEntry
                              : !date                                       ? text::kImportNoDate
                              : !IsDate(*date)                              ? text::kImportBadDate
                              : !type.empty() && TypeIn(type) == kNoDayType ? text::kImportBadType
                                                                            : 0};
    if (!reason) return taker_.Take(*date, TypeIn(type), name);
    if (name.empty()) name = ImportName(field);
    taker_.Skip(reason, name);
  }

  DateTaker& taker_;
  bool first_ = true;
  bool headed_ = false;
  std::size_t date_ = kNowhere;
  std::size_t type_ = kNowhere;
  std::size_t name_ = kNowhere;
};

}  // namespace

ImportedDates ReadCsvDates(std::string_view bytes, const ImportWindow& window) {
  const std::string decoded = DecodedText(bytes);
  std::string_view text = decoded;
  const char separator = SeparatorOf(text);
  ImportedDates imported;
  DateTaker taker(window, imported);
  CsvReader reader(taker);
  while (!text.empty() && !taker.Full()) reader.Row(TakeRecord(text, separator));
  if (taker.Full()) taker.Refuse();
  return imported;
}

}  // namespace zek
