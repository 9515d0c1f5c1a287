#include "comm/SocketText.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "comm/ReplyReader.h"

namespace zek {
namespace {

constexpr std::string_view kLinkUp = "<TRANSPARENT>";
constexpr char kPieceEnd = '\xFF';
constexpr unsigned kSequences = 10000;

bool IsStray(char character) { return character == 0 || character == 2 || character == 3; }

// Without an early end the loop runs on many characters at once; nearly all text has none.
bool MayHoldStrays(std::string_view text) {
  unsigned char least = 255;
  for (const char character : text) least = std::min(least, static_cast<unsigned char>(character));
  return least <= 3;
}

}  // namespace

void SocketText::Reset(bool hasDus) { *this = {}, hasDus_ = hasDus; }

bool SocketText::TakeDropped() {
  const bool tell = dropped_ && !droppedTold_;
  droppedTold_ = droppedTold_ || tell;
  return tell;
}

void SocketText::Take(std::string_view bytes, const HandOver& handOver) {
  if (hasDus_) {
    TakePlain(bytes, handOver);
  } else {
    TakePieces(bytes, handOver);
  }
}

void SocketText::TakePlain(std::string_view bytes, const HandOver& handOver) {
  std::array<char, 8> prefix{};
  std::snprintf(prefix.data(), prefix.size(), "%04u>", sequence_);
  sequence_ = (sequence_ + 1) % kSequences;
  std::string text(prefix.data());
  text += bytes;
  if (MayHoldStrays(bytes)) std::erase_if(text, IsStray);
  handOver(text);
}

void SocketText::TakePieces(std::string_view bytes, const HandOver& handOver) {
  const bool begun = !buffer_.empty();  // else the pieces are handed over where they stand
  if (begun) buffer_ += bytes;
  std::string_view rest = begun ? std::string_view(buffer_) : bytes;
  while (true) {
    std::size_t length = kLinkUp.size();
    std::size_t taken = length;
    if (!rest.starts_with(kLinkUp)) {
      length = rest.find(kPieceEnd, searched_);
      if (length == std::string_view::npos) break;
      taken = length + 1;
    }
    handOver(rest.substr(0, length));
    rest.remove_prefix(taken);
    searched_ = 0;
  }
  if (rest.size() > kLongestReply) dropped_ = true;
  // Cut at twice the limit only, so that a flood of single bytes costs no copy each.
  if (rest.size() > 2 * kLongestReply) rest = rest.substr(rest.size() - kLongestReply);
  if (begun) {
    buffer_.erase(0, buffer_.size() - rest.size());
  } else {
    buffer_ = rest;
  }
  searched_ = buffer_.size();
}

}  // namespace zek
