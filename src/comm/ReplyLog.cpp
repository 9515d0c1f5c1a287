#include "comm/ReplyLog.h"

#include <algorithm>

namespace zek {
namespace {
bool IsControl(char character) { return static_cast<unsigned char>(character) < 32; }

// Without an early end the loop runs on many characters at once; nearly all lines have none.
bool HasControl(std::string_view line) {
  unsigned char least = 255;
  for (const char character : line) least = std::min(least, static_cast<unsigned char>(character));
  return least < 32;
}
}  // namespace

void AppendShown(std::string& shown, std::string_view line) {
  if (!HasControl(line)) {
    shown.append(line);
    return;
  }
  for (auto at = line.begin(); at != line.end();) {
    const auto control = std::find_if(at, line.end(), IsControl);
    shown.append(at, control);
    at = control;
    if (at == line.end()) break;
    shown.append("<").append(std::to_string(static_cast<int>(*at))).append(">");
    ++at;
  }
}

void ReplyLog::Add(std::string_view line) {
  std::string entry;
  if (lines_.size() >= kLines) {  // the dropped line's memory serves the new one
    entry = std::move(lines_.front());
    lines_.pop_front();
    entry.clear();
  }
  AppendShown(entry, line);
  lines_.push_back(std::move(entry));
  if (Echo) Echo(lines_.back());
  ++added_;
}

void ReplyLog::Replace(std::deque<std::string> lines) {
  lines_ = std::move(lines);
  ++replaced_;
}

}  // namespace zek
