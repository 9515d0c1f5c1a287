#include "comm/ReplyReader.h"

#include <algorithm>
#include <utility>

#include "text/Controls.h"

namespace zek {
namespace {

constexpr std::string_view kLinkUp = "<TRANSPARENT>";
constexpr char kFiller = '\x17';

// Hardly any text has a "<", which one character's search finds out sooner.
bool HoldsLinkUp(std::string_view text) {
  const std::size_t at = text.find(kLinkUp.front());
  return at != std::string_view::npos && text.find(kLinkUp, at) != std::string_view::npos;
}

}  // namespace

void ReplyReader::HandleReplyText(std::string_view text, ReplyEvents& events) {
  if (HoldsLinkUp(text)) {
    ReplyBuffer.clear();
    events.OnLinkUp();
    return;
  }
  sequenceLength_ = std::min(sequence_.size(), text.size());
  for (std::size_t i = 0; i < sequenceLength_; ++i) sequence_[i] = text[i];
  text.remove_prefix(std::min(kPrefixLength, text.size()));
  std::string unfilled;  // hardly any text needs it, which one character's search finds out
  if (text.find(kFiller) != std::string_view::npos) {
    unfilled = text;
    std::erase(unfilled, kFiller);
    text = unfilled;
  }
  bool clean = ReplyBuffer.empty();  // most lines stand whole in the text and need no copy
  for (std::size_t at = FindControl(text); at != std::string_view::npos;) {
    const std::size_t lineFeed = text[at] == '\r' ? at + 1 : at;
    if (lineFeed == text.size() || text[lineFeed] != '\n') {
      clean = clean && text[at] != '\r';
      at = FindControl(text, at + 1);
      continue;
    }
    const std::string_view line = text.substr(0, at);
    if (clean && line.size() <= kLongestReply) {
      events.OnReplyLine(line);
    } else {
      EndLine(line, events);
    }
    text.remove_prefix(lineFeed + 1);
    clean = true;
    at = text.empty() ? std::string_view::npos : FindControl(text);
  }
  if (!text.empty()) Keep(text, events);
}

void ReplyReader::EndLine(std::string_view line, ReplyEvents& events) {
  Keep(line, events);
  const std::string whole = std::move(ReplyBuffer);
  ReplyBuffer.clear();
  events.OnReplyLine(
      std::string_view(whole).substr(whole.size() - std::min(whole.size(), kLongestReply)));
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
  // Cut at twice the limit only, so that a flood of single characters costs no copy each.
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
