#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace zek {

/// How many characters of an unterminated line or piece are kept.
inline constexpr std::size_t kLongestReply = 65536;

/// Receives the contents of reply text. Handlers must not call the reader.
class ReplyEvents {
 public:
  virtual ~ReplyEvents() = default;
  /// The text contained "<TRANSPARENT>": the communication server has opened the line to the
  /// controller.
  virtual void OnLinkUp() = 0;
  /// The first character of a line came whose end has not come.
  virtual void OnLineBegun() {}
  /// A complete line without its line end.
  virtual void OnReplyLine(std::string_view line) = 0;
  /// A line exceeded `kLongestReply` and lost its beginning; reported once until `Clear`.
  virtual void OnTextDropped() = 0;
};

/// Splits reply text into lines: pieces in, events out. A line feed ends a line. Carriage returns
/// and characters 23 (fillers of the controllers) are removed.
class ReplyReader {
 public:
  static constexpr std::size_t kPrefixLength = 5;

  /// True if `text` begins with a four-character sequence number and ">".
  static bool HasPrefix(std::string_view text) {
    return text.size() >= kPrefixLength && text[kPrefixLength - 1] == '>';
  }

  /// Reads one reply text. Its first five characters are the sequence number and ">".
  void HandleReplyText(std::string_view text, ReplyEvents& events);

  /// Discards the unterminated line; for a new connection.
  void Clear();

  /// Returns and clears whether a line lost its beginning.
  bool TakeDropped();

  /// The sequence number of the last reply text.
  std::string_view Sequence() const { return {sequence_.data(), sequenceLength_}; }

 private:
  void TakeSequence(std::string_view digits);
  void ReadLines(std::string_view text, ReplyEvents& events);
  void EndLine(std::string_view line, bool stray, ReplyEvents& events);
  void Keep(std::string_view text, ReplyEvents& events);

  std::string ReplyBuffer;  // the unterminated line, without carriage returns and characters 23
  std::array<char, 4> sequence_{};
  std::size_t sequenceLength_ = 0;
  bool dropped_ = false;
  bool droppedTold_ = false;
};

}  // namespace zek
