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
  text.reserve(text.size() + bytes.size());
  std::remove_copy_if(bytes.begin(), bytes.end(), std::back_inserter(text), IsStray);
  handOver(text);
}

void SocketText::TakePieces(std::string_view bytes, const HandOver& handOver) {
  buffer_ += bytes;
  std::size_t start = 0;
  while (true) {
    const std::string_view rest = std::string_view(buffer_).substr(start);
    if (rest.starts_with(kLinkUp)) {
      handOver(rest.substr(0, kLinkUp.size()));
      start += kLinkUp.size();
    } else {
      const std::size_t end = buffer_.find(kPieceEnd, std::max(start, searched_));
      if (end == std::string::npos) break;
      handOver(rest.substr(0, end - start));
      start = end + 1;
    }
  }
  if (buffer_.size() - start > kLongestReply) dropped_ = true;
  // Cut at twice the limit only, so that a flood of single bytes costs no copy each.
  if (buffer_.size() - start > 2 * kLongestReply) start = buffer_.size() - kLongestReply;
  if (start > 0) buffer_.erase(0, start);
  searched_ = buffer_.size();
}

}  // namespace zek
