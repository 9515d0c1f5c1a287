#include "comm/ReplyReader.h"

#include <algorithm>

namespace zek {
namespace {

constexpr std::string_view kLinkUp = "<TRANSPARENT>";
constexpr std::size_t kPrefixLength = 5;
constexpr std::size_t kSequenceLength = 4;
constexpr std::string_view kFillers = "\r\x17";  // carriage return and character 23

// Two searches for one character each are several times faster than one for either.
bool HasFiller(std::string_view line) {
  return line.find(kFillers[0]) != std::string_view::npos ||
         line.find(kFillers[1]) != std::string_view::npos;
}

}  // namespace

void ReplyReader::HandleReplyText(std::string_view text, ReplyEvents& events) {
  if (text.find(kLinkUp) != std::string_view::npos) {
    ReplyBuffer.clear();
    events.OnLinkUp();
    return;
  }
  sequence_ = text.substr(0, kSequenceLength);
  text.remove_prefix(std::min(kPrefixLength, text.size()));
  while (true) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) break;
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    // Most lines stand whole and clean in the text and need no copy.
    if (ReplyBuffer.empty() && line.size() <= kLongestReply && !HasFiller(line)) {
      events.OnReplyLine(line);
      continue;
    }
    Keep(line, events);
    const std::string whole = std::move(ReplyBuffer);
    ReplyBuffer.clear();
    events.OnReplyLine(
        std::string_view(whole).substr(whole.size() - std::min(whole.size(), kLongestReply)));
  }
  Keep(text, events);
}

void ReplyReader::Keep(std::string_view text, ReplyEvents& events) {
  while (!text.empty()) {
    const std::size_t clean = std::min(text.find_first_of(kFillers), text.size());
    ReplyBuffer.append(text.substr(0, clean));
    text.remove_prefix(std::min(clean + 1, text.size()));
  }
  if (ReplyBuffer.size() <= kLongestReply) return;
  if (!droppedTold_) {
    droppedTold_ = true;
    events.OnTextDropped();
  }
  // Cut at twice the limit only, so that a flood of single characters costs no copy each.
  if (ReplyBuffer.size() > 2 * kLongestReply)
    ReplyBuffer.erase(0, ReplyBuffer.size() - kLongestReply);
}

void ReplyReader::Clear() {
  ReplyBuffer.clear();
  droppedTold_ = false;
}

}  // namespace zek
