#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zek {

/// The socket buffer: bytes as they arrive in, reply texts for the reply reader out (each begins
/// with a four-character sequence number and ">").
///
/// Without a DUS number the communication server sends "<TRANSPARENT>" and then pieces that end
/// with character 255 and bring their own sequence number. With one it passes plain text through,
/// with stray characters 0, 2 and 3; that text gets a sequence number here ("0000" to "9999"). A
/// "<TRANSPARENT>" in it is handed over by itself: how the bytes are cut makes no difference.
class SocketText {
 public:
  /// Handlers must not call back into this object.
  using HandOver = std::function<void(std::string_view text)>;

  /// For a new connection: forgets everything and takes the kind of its topic.
  void Reset(bool hasDus);

  /// True when, since this was asked last, a piece without end was longer than the limit and lost
  /// its beginning.
  bool TakeDropped();

  /// True when, since this was asked last, a piece came without its sequence number and ">", so
  /// that text of it is taken for them.
  bool TakeTorn();

  void Take(std::string_view bytes, const HandOver& handOver);

 private:
  void TakePlain(std::string_view bytes, const HandOver& handOver);
  void HandOverPlain(std::string_view text, const HandOver& handOver);
  void TakePieces(std::string_view bytes, const HandOver& handOver);
  std::optional<std::string_view> NextPiece(std::string_view& rest);

  bool hasDus_ = false;
  unsigned sequence_ = 0;
  std::string buffer_;        // a piece begun; of plain text, what may begin a "<TRANSPARENT>"
  std::size_t searched_ = 0;  // so much of it is known to hold no end of a piece
  bool dropped_ = false;
  bool torn_ = false;
};

}  // namespace zek
