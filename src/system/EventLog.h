#pragma once

#include <iostream>
#include <streambuf>
#include <string>

namespace zek {

/// Adds a record to the system's log of events that an unattended run succeeded or failed, with its
/// report (UTF-8): on Windows to the log "Application" with the source "ZekView", elsewhere to
/// syslog. What the log can't hold is cut off. Returns false if the system refused it.
bool RecordEvent(bool succeeded, const std::string& report);

/// Keeps what is written to std::cerr while it exists. It is written there as well, if that works:
/// a scheduled task may have no standard error.
class KeptErrors final : private std::streambuf {
 public:
  KeptErrors() : errors_(std::cerr.rdbuf(this)) {}
  KeptErrors(const KeptErrors&) = delete;
  KeptErrors& operator=(const KeptErrors&) = delete;
  ~KeptErrors() override { std::cerr.rdbuf(errors_); }

  const std::string& Text() const { return text_; }

 private:
  int_type overflow(int_type character) override {
    if (traits_type::eq_int_type(character, traits_type::eof())) return 0;
    text_ += traits_type::to_char_type(character);
    errors_->sputc(text_.back());  // if nobody can see it, it is kept all the same
    return character;
  }
  int sync() override {
    errors_->pubsync();
    return 0;
  }

  std::streambuf* errors_;
  std::string text_;
};

}  // namespace zek
