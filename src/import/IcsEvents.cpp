#include "import/IcsEvents.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "import/ImportText.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Lines.h"

namespace zek {
namespace {

constexpr int kFirstYear = 1901;
constexpr int kLastYear = 2099;
constexpr std::size_t kDateLength = 8;
constexpr std::size_t kMostValues = 2000;  // RDATE and EXDATE of one event

struct Property {
  std::string name;  // upper case
  std::string_view parameters;
  std::string_view value;
};

std::optional<Property> Parsed(std::string_view line) {
  bool quoted = false;
  std::size_t nameEnd = std::string_view::npos;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] == '"') quoted = !quoted;
    if (quoted || (line[at] != ':' && line[at] != ';')) continue;
    nameEnd = std::min(nameEnd, at);
    if (line[at] != ':') continue;
    return Property{UpperCase(line.substr(0, nameEnd)), line.substr(nameEnd, at - nameEnd),
                    line.substr(at + 1)};
  }
  return std::nullopt;
}

// A line that begins with a blank or a tab continues the one before it.
std::string Unfolded(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    std::string_view line = TakeLine(bytes);
    if (line.starts_with(' ') || line.starts_with('\t')) {
      line.remove_prefix(1);
    } else if (!text.empty()) {
      text += '\n';
    }
    text += line;
  }
  return text;
}

std::string Unescaped(std::string_view value) {
  std::string text;
  for (std::size_t at = 0; at < value.size(); ++at) {
    const bool escape = value[at] == '\\' && at + 1 < value.size();
    if (escape) ++at;
    const bool newLine = escape && (value[at] == 'n' || value[at] == 'N');
    text += newLine ? ' ' : value[at];
  }
  return text;
}

bool IsClock(std::string_view text) {
  constexpr std::size_t length = 7;  // T and the digits
  if (text.ends_with('Z')) text.remove_suffix(1);
  return text.size() == length && text[0] == 'T' && text.substr(1, 2) < "24" &&
         text.substr(3, 2) < "60" && text.substr(5) <= "60" &&
         text.find_first_not_of("0123456789", 1) == std::string_view::npos;
}

// Checks "20261224", "20261224T080000" or "20261224T080000Z".
ImportReason CheckMoment(std::string_view value) {
  const auto date = DateDigits(value.substr(0, kDateLength));
  const bool hasClock = value.size() > kDateLength;
  if (!date || (hasClock && !IsClock(value.substr(kDateLength)))) return {text::kImportNoDate};
  if (!IsDate(*date)) return {text::kImportBadDate};
  if (date->year < kFirstYear || date->year > kLastYear) return {text::kImportYear};
  return {};
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (parts.size() <= kMostValues) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return parts;
}

bool IsNumber(std::string_view text, std::size_t digits) {
  return !text.empty() && text.size() <= digits &&
         text.find_first_not_of("0123456789") == std::string_view::npos;
}

using RuleParts = std::map<std::string, std::string, std::less<>>;

std::optional<RuleParts> RulePartsOf(std::string_view value) {
  RuleParts parts;
  for (const std::string_view part : Split(value, ';')) {
    const std::size_t equals = part.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    const std::string key = UpperCase(part.substr(0, equals));
    if (!parts.emplace(key, UpperCase(part.substr(equals + 1))).second) return std::nullopt;
  }
  return parts;
}

// Which parts each frequency may have. What is missing here takes libical too long, or it takes no
// notice of it.
bool IsWanted(const std::string& frequency, const RuleParts& parts) {
  static const std::map<std::string, std::string_view, std::less<>> wanted = {
      {"DAILY", " FREQ INTERVAL COUNT UNTIL WKST BYDAY BYMONTH BYMONTHDAY "},
      {"WEEKLY", " FREQ INTERVAL COUNT UNTIL WKST BYDAY BYMONTH "},
      {"MONTHLY", " FREQ INTERVAL COUNT UNTIL WKST BYDAY BYMONTH BYMONTHDAY BYSETPOS "},
      {"YEARLY",
       " FREQ INTERVAL COUNT UNTIL WKST BYDAY BYMONTH BYMONTHDAY BYSETPOS BYYEARDAY "
       "BYWEEKNO "}};
  const auto found = wanted.find(frequency);
  if (found == wanted.end()) return false;
  const bool weeks = parts.contains("BYWEEKNO");
  return std::all_of(parts.begin(), parts.end(), [&](const auto& part) {
    const bool withWeeks = part.first != "BYMONTH" && part.first != "BYMONTHDAY" &&
                           part.first != "BYYEARDAY" && part.first != "BYSETPOS";
    return found->second.find(" " + part.first + " ") != std::string_view::npos &&
           (!weeks || withWeeks);
  });
}

// Days such as "2MO" or "-1SU" count within a month or a year, days of the month from its end only
// within months and years.
bool HasPlaces(const std::string& frequency, const RuleParts& parts) {
  if (frequency == "MONTHLY" || (frequency == "YEARLY" && !parts.contains("BYWEEKNO"))) return true;
  const auto days = parts.find("BYDAY");
  const auto dates = parts.find("BYMONTHDAY");
  return (days == parts.end() || days->second.find_first_of("0123456789") == std::string::npos) &&
         (dates == parts.end() || dates->second.find('-') == std::string::npos);
}

// Checks a repetition and writes it again with dates alone.
ImportReason CheckRule(std::string_view value, std::vector<std::string>& lines) {
  constexpr std::size_t countDigits = 5;
  constexpr std::size_t intervalDigits = 3;
  const auto parts = RulePartsOf(value);
  if (!parts || !parts->contains("FREQ")) return {text::kImportBadEntry};
  const std::string& frequency = parts->at("FREQ");
  if (!IsWanted(frequency, *parts) || !HasPlaces(frequency, *parts)) return {text::kImportRule};
  std::string line = "RRULE:FREQ=" + frequency;
  for (const auto& [key, part] : *parts) {
    if (key == "FREQ") continue;
    const std::size_t digits = key == "COUNT"      ? countDigits
                               : key == "INTERVAL" ? intervalDigits
                                                   : 0;
    if (digits > 0 && (!IsNumber(part, digits) || part.find_first_not_of('0') == std::string::npos))
      return {text::kImportRule};
    if (key != "UNTIL") {
      line.append(";").append(key).append("=").append(part);
      continue;
    }
    ImportReason wrong = CheckMoment(part);
    if (wrong.text == text::kImportYear && part > "2") continue;  // "99991231": without an end
    if (wrong) return wrong;
    line += ";UNTIL=" + part.substr(0, kDateLength);
  }
  lines.push_back(line);
  return {};
}

// Collects the lines of one event.
class EventReader {
 public:
  explicit EventReader(IcsEvent& event) : event_(event) {}

  void Take(const Property& property) {
    const std::string& name = property.name;
    if (name == "SUMMARY") event_.name = ImportName(Unescaped(property.value));
    if (name == "UID") event_.uid = property.value;
    const std::string value = UpperCase(Trim(property.value));
    if (name == "STATUS" && value == "CANCELLED") Skip({text::kImportCancelled});
    if (name == "EXRULE") Skip({text::kImportRule});
    if (name == "DTSTART" || name == "DTEND") TakeMoments(name, value, 1);
    if (name == "RDATE" || name == "EXDATE") TakeMoments(name, value, kMostValues);
    if (name == "RRULE") Skip(CheckRule(value, event_.lines));
    if (name == "DURATION") TakeDuration(value);
    if (name == "RECURRENCE-ID") TakeReplaced(property, value);
  }

 private:
  void Skip(const ImportReason& reason) {
    if (!event_.reason) event_.reason = reason;
  }

  void TakeMoments(const std::string& name, std::string_view value, std::size_t most) {
    for (const std::string_view moment : Split(value, ',')) {
      if (moment.find('/') != std::string_view::npos) return Skip({text::kImportRule});
      if (const ImportReason wrong = CheckMoment(moment)) return Skip(wrong);
      if (++values_[name] > most)
        return Skip({text::kImportTooManyDates, std::to_string(kCalendarEntries)});
      const bool isDate = moment.size() == kDateLength;
      // Dates count as they are written, whatever their zone.
      event_.lines.push_back(name + (isDate ? ";VALUE=DATE:" : ":") +
                             std::string(moment.substr(0, moment.find('Z'))));
    }
  }

  void TakeDuration(const std::string& value) {
    constexpr std::size_t longest = 16;
    if (value.size() > longest) return Skip({text::kImportBadEntry});
    event_.lines.push_back("DURATION:" + value);
  }

  void TakeReplaced(const Property& property, const std::string& value) {
    if (const ImportReason wrong = CheckMoment(value)) return Skip(wrong);
    if (UpperCase(property.parameters).find("RANGE") != std::string::npos)
      Skip({text::kImportRule});
    event_.replaces = ImportKey(*DateDigits(std::string_view(value).substr(0, kDateLength)));
  }

  IcsEvent& event_;
  std::map<std::string, std::size_t> values_;
};

class FileReader {
 public:
  IcsFile Read(std::string_view text) {
    while (!text.empty() && !file_.refused) Line(TakeLine(text));
    if (reader_) Close({text::kImportCutOff});
    file_.cut = calendars_ > 0;
    return std::move(file_);
  }

 private:
  void Line(std::string_view line) {
    const auto property = Parsed(line);
    if (!property) return;
    const std::string value = UpperCase(Trim(property->value));
    if (property->name == "BEGIN") return Begin(value);
    if (property->name == "END") return End(value);
    if (reader_ && inner_ == 0) reader_->Take(*property);
  }

  void Begin(const std::string& what) {
    if (what == "VCALENDAR") ++calendars_;
    if (reader_) {
      ++inner_;
      if (what == "VEVENT" && !file_.events.back().reason)
        file_.events.back().reason = {text::kImportNested};
    } else if (what == "VEVENT") {
      if (file_.events.size() == kMostImported)
        file_.refused = {text::kImportTooMany, std::to_string(kMostImported)};
      file_.events.emplace_back();
      reader_.emplace(file_.events.back());
    }
  }

  void End(const std::string& what) {
    if (what == "VCALENDAR") --calendars_;
    if (!reader_) return;
    if (inner_ > 0) {
      --inner_;
    } else {
      Close(what == "VEVENT" ? ImportReason{} : ImportReason{text::kImportCutOff});
    }
  }

  void Close(const ImportReason& reason) {
    IcsEvent& event = file_.events.back();
    if (!event.reason) event.reason = reason;
    reader_.reset();
    inner_ = 0;
  }

  IcsFile file_;
  std::optional<EventReader> reader_;  // of the event that has begun
  int inner_ = 0;                      // components that have begun in it
  int calendars_ = 0;
};

}  // namespace

IcsFile ReadIcsEvents(std::string_view bytes) {
  const std::string unfolded = Unfolded(bytes);
  IcsFile file;
  file.refused = CheckImportText(unfolded);
  return file.refused ? file : FileReader().Read(DecodedText(unfolded));
}

}  // namespace zek
