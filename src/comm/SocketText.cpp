#include "comm/SocketText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "comm/ReplyReader.h"
#include "text/Controls.h"

namespace zek {
namespace {

constexpr std::string_view kLinkUp = "<TRANSPARENT>";
constexpr char kPieceEnd = '\xFF';
constexpr unsigned kSequences = 10000;

// Strays are rare. Without an early exit the compiler can vectorize the loop.
bool MayHoldStrays(std::string_view text) {
  unsigned char least = 255;
  for (const char character : text) least = std::min(least, static_cast<unsigned char>(character));
  return least <= 3;
}

// Returns the number of characters at the end of `text` that may begin a "<TRANSPARENT>".
std::size_t LinkUpBegun(std::string_view text) {
  const std::string_view last =
      text.substr(text.size() - std::min(text.size(), kLinkUp.size() - 1));
  const std::size_t at = last.rfind(kLinkUp.front());
  if (at == std::string_view::npos || !kLinkUp.starts_with(last.substr(at))) return 0;
  return last.size() - at;
}

}  // namespace

void SocketText::Reset(bool hasDus) { *this = {}, hasDus_ = hasDus; }

bool SocketText::TakeDropped() { return std::exchange(dropped_, false); }

bool SocketText::TakeTorn() { return std::exchange(torn_, false); }

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
  text += std::exchange(buffer_, {});
  text += bytes;
  if (MayHoldStrays(bytes)) std::erase_if(text, IsStray);
  HandOverPlain(text, handOver);
}

// Keeps a possible beginning of "<TRANSPARENT>" in the buffer and hands over the rest.
void SocketText::HandOverPlain(std::string_view text, const HandOver& handOver) {
  const std::size_t begun = LinkUpBegun(text);
  buffer_ = text.substr(text.size() - begun);
  text.remove_suffix(begun);
  const std::string prefix(text.substr(0, ReplyReader::kPrefixLength));
  std::size_t linkUp = text.find(kLinkUp);
  handOver(text.substr(0, linkUp));
  while (linkUp != std::string_view::npos) {
    handOver(kLinkUp);
    text.remove_prefix(linkUp + kLinkUp.size());
    linkUp = text.find(kLinkUp);
    if (linkUp != 0 && !text.empty()) handOver(prefix + std::string(text.substr(0, linkUp)));
  }
}

void SocketText::TakePieces(std::string_view bytes, const HandOver& handOver) {
  buffer_ += bytes;
  std::string_view rest = buffer_;
  while (const auto piece = NextPiece(rest)) handOver(*piece);
  if (rest.size() > kLongestReply) dropped_ = true;
  // Cut only at twice the limit: a flood of single bytes then does not copy for each one.
  if (rest.size() > 2 * kLongestReply) rest = rest.substr(rest.size() - kLongestReply);
  buffer_.erase(0, buffer_.size() - rest.size());
  searched_ = buffer_.size();
}

// Removes the first piece from `rest` and returns it without its end; nothing if incomplete.
std::optional<std::string_view> SocketText::NextPiece(std::string_view& rest) {
  const bool linkUp = rest.starts_with(kLinkUp);
  const std::size_t length = linkUp ? kLinkUp.size() : rest.find(kPieceEnd, searched_);
  if (length == std::string_view::npos) return std::nullopt;
  const std::string_view piece = rest.substr(0, length);
  rest.remove_prefix(linkUp ? length : length + 1);
  searched_ = 0;
  if (!linkUp && !piece.empty() && !ReplyReader::HasPrefix(piece)) torn_ = true;
  return piece;
}

}  // namespace zek
