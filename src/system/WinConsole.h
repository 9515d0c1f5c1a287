#pragma once

#include <streambuf>
#include <string>

namespace zek {

/// A stream's way into a console window: whole UTF-8 characters, whatever code page it has.
class ConsoleBuffer final : public std::streambuf {
 public:
  /// `stream` is the system's number of a standard stream. Does nothing until `Begin`.
  explicit ConsoleBuffer(unsigned long stream) : stream_(stream) {}

  /// False when the stream is no console.
  bool Begin();

  /// The console takes escape sequences.
  bool KnowsEscapes() const { return escapes_; }

 private:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override;
  bool Show(std::size_t bytes);

  unsigned long stream_;
  void* console_ = nullptr;
  bool escapes_ = false;
  std::string waiting_;  // of a line that has not ended
};

}  // namespace zek
