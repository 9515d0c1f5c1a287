#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace zek {

/// Of a reply that never ends its line, or a piece that never ends, so many characters are kept.
inline constexpr std::size_t kLongestReply = 65536;

/// What the reply text holds. Handlers must not feed the reader from inside.
class ReplyEvents {
 public:
  virtual ~ReplyEvents() = default;
  /// "<TRANSPARENT>" came: the communication server has opened the line to the controller.
  virtual void OnLinkUp() = 0;
  /// A complete line without its line end.
  virtual void OnReplyLine(std::string_view line) = 0;
  /// A line was longer than `kLongestReply` and lost its beginning; told once until `Clear`.
  virtual void OnTextDropped() = 0;
};

/// Cuts reply text into lines: pieces in, events out. Carriage returns and characters 23 (which
/// the controllers send as fillers) vanish, a line feed ends a line.
class ReplyReader {
 public:
  static constexpr std::size_t kPrefixLength = 5;

  /// True when `text` begins with a four-character sequence number and ">".
  static bool HasPrefix(std::string_view text) {
    return text.size() >= kPrefixLength && text[kPrefixLength - 1] == '>';
  }

  /// The first five characters of `text` are a four-character sequence number and ">".
  void HandleReplyText(std::string_view text, ReplyEvents& events);

  /// Forgets what stands without a line end; for a new connection.
  void Clear();

  /// True when, since this was asked last, a line lost its beginning.
  bool TakeDropped();

  /// The sequence number of the last reply text.
  std::string_view Sequence() const { return {sequence_.data(), sequenceLength_}; }

 private:
  void TakeSequence(std::string_view digits);
  void ReadLines(std::string_view text, ReplyEvents& events);
  void EndLine(std::string_view line, ReplyEvents& events);
  void Keep(std::string_view text, ReplyEvents& events);

  std::string ReplyBuffer;  // the line begun, without carriage returns and characters 23
  std::array<char, 4> sequence_{};
  std::size_t sequenceLength_ = 0;
  bool dropped_ = false;
  bool droppedTold_ = false;
};

}  // namespace zek
