#include "comm/LogText.h"

#include <algorithm>

namespace zek {

std::string TimeBefore(const LocalTime& since) {
  return since.year == 0 ? std::string() : DateAndMilliseconds(since) + "  ";
}

std::string LogLine(const ReplyLog& log, std::uint64_t number, bool times) {
  if (number < log.First() || number >= log.End()) return {};
  const auto index = static_cast<std::size_t>(number - log.First());
  return (times ? TimeBefore(log.Since(number)) : std::string()) + log.Lines()[index];
}

std::string LogText(const ReplyLog& log, std::uint64_t first, std::uint64_t end, bool times,
                    std::string_view lineEnd) {
  std::string text;
  for (std::uint64_t number = std::max(first, log.First()); number < std::min(end, log.End());
       ++number)
    text.append(LogLine(log, number, times)).append(lineEnd);
  return text;
}

}  // namespace zek
