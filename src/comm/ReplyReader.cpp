#include "comm/ReplyReader.h"

#include <algorithm>
#include <utility>

namespace zek {
namespace {

constexpr std::string_view kLinkUp = "<TRANSPARENT>";
constexpr char kFiller = '\x17';

// Fast path: "<" is rare, and a search for one character is faster.
bool HoldsLinkUp(std::string_view text) {
  const std::size_t at = text.find(kLinkUp.front());
  return at != std::string_view::npos && text.find(kLinkUp, at) != std::string_view::npos;
}

// True if a carriage return is not part of a line end. Strays are rare: without an early exit the
// compiler can vectorize the loop, and the lines need no search of their own.
bool HoldsStrayReturns(std::string_view text) {
  if (text.ends_with('\r')) return true;
  unsigned char found = 0;
  for (std::size_t i = 1; i < text.size(); ++i) {
    const bool isReturn = text[i - 1] == '\r';
    const bool isEnd = text[i] == '\n';
    found = std::max(found, static_cast<unsigned char>(isReturn > isEnd));
  }
  return found != 0;
}

}  // namespace

void ReplyReader::HandleReplyText(std::string_view text, ReplyEvents& events) {
  if (HoldsLinkUp(text)) {
    ReplyBuffer.clear();
    events.OnLinkUp();
    return;
  }
  TakeSequence(text.substr(0, kPrefixLength - 1));
  text.remove_prefix(std::min(kPrefixLength, text.size()));
  // Fillers are rare: copy the text only if it contains one.
  if (text.find(kFiller) == std::string_view::npos) {
    ReadLines(text, events);
  } else {
    std::string unfilled(text);
    std::erase(unfilled, kFiller);
    ReadLines(unfilled, events);
  }
}

void ReplyReader::TakeSequence(std::string_view digits) {
  sequenceLength_ = digits.size();
  std::copy(digits.begin(), digits.end(), sequence_.begin());
}

void ReplyReader::ReadLines(std::string_view text, ReplyEvents& events) {
  const bool stray = HoldsStrayReturns(text);
  for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    EndLine(line, stray, events);
    text.remove_prefix(end + 1);
  }
  if (text.empty()) return;
  const bool begins = ReplyBuffer.empty();
  Keep(text, events);
  if (begins && !ReplyBuffer.empty()) events.OnLineBegun();
}

void ReplyReader::EndLine(std::string_view line, bool stray, ReplyEvents& events) {
  // Most lines are complete in the text and need no copy.
  const bool whole = ReplyBuffer.empty() && line.size() <= kLongestReply;
  if (whole && (!stray || line.find('\r') == std::string_view::npos)) {
    events.OnReplyLine(line);
    return;
  }
  Keep(line, events);
  const std::string all = std::exchange(ReplyBuffer, {});
  events.OnReplyLine(
      std::string_view(all).substr(all.size() - std::min(all.size(), kLongestReply)));
}

void ReplyReader::Keep(std::string_view text, ReplyEvents& events) {
  const std::size_t before = ReplyBuffer.size();
  ReplyBuffer += text;
  const auto begin = ReplyBuffer.begin() + static_cast<std::ptrdiff_t>(before);
  ReplyBuffer.erase(std::remove(begin, ReplyBuffer.end(), '\r'), ReplyBuffer.end());
  if (ReplyBuffer.size() <= kLongestReply) return;
  dropped_ = true;
  if (!droppedTold_) {
    droppedTold_ = true;
    events.OnTextDropped();
  }
  // Cut only at twice the limit: a flood of single characters then does not copy for each one.
  if (ReplyBuffer.size() > 2 * kLongestReply)
    ReplyBuffer.erase(0, ReplyBuffer.size() - kLongestReply);
}

bool ReplyReader::TakeDropped() { return std::exchange(dropped_, false); }

void ReplyReader::Clear() {
  dropped_ = false;
  ReplyBuffer.clear();
  droppedTold_ = false;
}

}  // namespace zek
