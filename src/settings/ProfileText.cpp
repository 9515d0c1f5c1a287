#include "settings/ProfileText.h"

#include <algorithm>

#include "text/Fields.h"

namespace zek {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kLongestValue = 127;  // the platform's buffer of 128 without the final NUL

std::string_view Strip(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

struct Line {
  std::size_t start = 0;  // offset in the text
  std::size_t end = 0;    // behind the last character, without the line end
  std::size_t next = 0;   // start of the following line
};

Line LineAt(std::string_view text, std::size_t start) {
  const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
  std::size_t next = end;
  if (next < text.size()) next += text.substr(next, 2) == "\r\n" ? 2U : 1U;
  return {start, end, next};
}

std::string_view Content(std::string_view text, const Line& line) {
  return Strip(text.substr(line.start, line.end - line.start));
}

std::optional<std::string_view> SectionName(std::string_view line) {
  const std::size_t close = line.rfind(']');
  if (line.empty() || line.front() != '[' || close == std::string_view::npos) return std::nullopt;
  return Strip(line.substr(1, close - 1));
}

struct Span {
  std::size_t start = 0;  // start of the first line after the header
  std::size_t end = 0;    // end of the section's last line
};

std::optional<Span> FindSection(std::string_view text, std::string_view section) {
  std::optional<Span> found;
  for (std::size_t at = 0; at < text.size();) {
    const Line line = LineAt(text, at);
    if (const auto name = SectionName(Content(text, line))) {
      if (found) {
        found->end = line.start;
        return found;
      }
      if (EqualNoCase(*name, section)) found = Span{line.next, text.size()};
    }
    at = line.next;
  }
  return found;
}

// A line "key = value"; without "=" the whole line is the key and there is no value.
struct Entry {
  std::string_view key;
  std::optional<std::string_view> value;
};

Entry EntryOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {line, std::nullopt};
  return {Strip(line.substr(0, equals)), Strip(line.substr(equals + 1))};
}

std::optional<Line> FindKey(std::string_view text, const Span& section, std::string_view key) {
  for (std::size_t at = section.start; at < section.end;) {
    const Line line = LineAt(text, at);
    const std::string_view content = Content(text, line);
    if (!content.empty() && EqualNoCase(EntryOf(content).key, key)) return line;
    at = line.next;
  }
  return std::nullopt;
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                      value.front() == value.back();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

bool IsProfileName(std::string_view name) { return !Strip(name).empty(); }

std::string ProfileCut(std::string value) {
  value.resize(std::min(value.size(), kLongestValue));
  return value;
}

std::string ProfileDefault(std::string_view fallback) {
  return ProfileCut(std::string(fallback.substr(0, fallback.find_last_not_of(' ') + 1)));
}

std::string ProfileRefusal(std::string_view section, std::string_view key, std::string_view value) {
  if (!IsProfileName(section) || !IsProfileName(key)) return "a value needs a section and a key";
  const bool oneLine = value.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
  return oneLine ? "" : "a value can't hold a line end";
}

std::optional<std::string> ProfileValue(std::string_view text, std::string_view section,
                                        std::string_view key) {
  const std::optional<Span> span = FindSection(text, section);
  if (!span) return std::nullopt;
  const std::optional<Line> line = FindKey(text, *span, key);
  if (!line) return std::nullopt;
  const std::optional<std::string_view> value = EntryOf(Content(text, *line)).value;
  if (!value) return std::nullopt;
  return std::string(WithoutQuotes(*value));
}

ProfileSection ProfileSectionText(std::string_view text, std::string_view section,
                                  std::size_t bufferSize) {
  ProfileSection result;
  const std::optional<Span> span = FindSection(text, section);
  if (!span) return result;
  const std::size_t limit = bufferSize - 2;  // a full buffer ends in two NULs
  for (std::size_t at = span->start; at < span->end;) {
    const Line line = LineAt(text, at);
    at = line.next;
    const std::string_view content = Content(text, line);
    if (content.empty() || content.front() == ';') continue;
    const Entry entry = EntryOf(content);
    if (entry.value && entry.key.empty() && entry.value->empty()) continue;
    std::string item(entry.key);
    if (entry.value) item.append("=").append(*entry.value);
    const std::size_t room = limit - result.length;
    if (item.size() + 1 > room) {
      result.cut = true;
      result.length = limit;
      item.resize(std::min(item.size(), room));
      if (!item.empty()) result.entries.push_back(std::move(item));
      return result;
    }
    result.length += item.size() + 1;
    result.entries.push_back(std::move(item));
  }
  // The platform's call returns the same length for an exact fit: it counts as cut too.
  result.cut = result.length >= limit;
  return result;
}

ProfileChange ChangeToValue(std::string_view text, std::string_view section, std::string_view key,
                            std::optional<std::string_view> value) {
  const std::optional<Span> span = FindSection(text, section);
  if (!value) {
    const std::optional<Line> line = span ? FindKey(text, *span, key) : std::nullopt;
    return line ? ProfileChange{line->start, line->next - line->start, {}} : ProfileChange();
  }
  const auto endsOpen = [text](std::size_t at) {
    return at > 0 && text[at - 1] != '\n' && text[at - 1] != '\r';
  };
  const std::size_t firstLetter = std::min(value->find_first_not_of(kBlanks), value->size());
  const std::string entry =
      std::string(key).append("=").append(value->substr(firstLetter)).append("\r\n");
  if (!span) {
    const std::string header = std::string("[").append(section).append("]\r\n");
    return {text.size(), 0, (endsOpen(text.size()) ? "\r\n" : "") + header + entry};
  }
  if (const std::optional<Line> line = FindKey(text, *span, key)) {
    return {line->start, line->next - line->start, entry};
  }
  std::size_t insertAt = span->start;
  for (std::size_t at = span->start; at < span->end;) {
    const Line line = LineAt(text, at);
    if (!Content(text, line).empty()) insertAt = line.next;
    at = line.next;
  }
  return {insertAt, 0, (endsOpen(insertAt) ? "\r\n" : "") + entry};
}

}  // namespace zek
