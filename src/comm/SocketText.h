#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zek {

/// Turns received bytes into reply texts for the reply reader. Each reply text begins with a
/// four-character sequence number and ">".
///
/// Without a DUS number the communication server sends "<TRANSPARENT>" and then pieces, which
/// contain their sequence number and end with character 255. With a DUS number it sends plain text
/// with stray characters 0, 2 and 3; this class removes the strays and adds a sequence number
/// ("0000" to "9999"). A "<TRANSPARENT>" in plain text becomes a reply text of its own, no matter
/// how the bytes are split.
class SocketText {
 public:
  /// Handlers must not call back into this object.
  using HandOver = std::function<void(std::string_view text)>;

  /// Discards everything; for a new connection to a topic with or without a DUS number.
  void Reset(bool hasDus);

  /// Returns and clears whether an unterminated piece exceeded the limit and lost its beginning.
  bool TakeDropped();

  /// Returns and clears whether a piece lacked its sequence number and ">". The reader then took
  /// text of the piece for them.
  bool TakeTorn();

  void Take(std::string_view bytes, const HandOver& handOver);

 private:
  void TakePlain(std::string_view bytes, const HandOver& handOver);
  void HandOverPlain(std::string_view text, const HandOver& handOver);
  void TakePieces(std::string_view bytes, const HandOver& handOver);
  std::optional<std::string_view> NextPiece(std::string_view& rest);

  bool hasDus_ = false;
  unsigned sequence_ = 0;
  std::string buffer_;        // an unfinished piece, or a possible part of "<TRANSPARENT>"
  std::size_t searched_ = 0;  // length of its beginning that contains no end of a piece
  bool dropped_ = false;
  bool torn_ = false;
};

}  // namespace zek
