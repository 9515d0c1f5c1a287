#pragma once

// The DDE transport and the tag object of the system that the program is built for.

#include <utility>

#include "comm/TagServer.h"
#ifdef _WIN32
#include "comm/WinDdeTransport.h"
#include "comm/WinTags.h"
#endif
#include "comm/Transport.h"
#include "lang/TextNumbers.h"
#include "system/Later.h"

namespace zek {

/// DDE on a system without it: opening fails.
class WithoutDde final : public Transport {
 public:
  /// What is posted must not run after this object is gone.
  explicit WithoutDde(Later later) : later_(std::move(later)) {}

  void Open(const LinkTarget& /*target*/) override {
    state_ = LinkState::Opening;
    later_([this, serial = ++serial_] {
      if (serial != serial_) return;
      Close();
      Events().OnLinkError({text::kNoDde, {}});
    });
  }
  bool Send(std::string_view /*bytes*/) override { return false; }
  bool AllSent() const override { return true; }
  void Close() override {
    ++serial_;
    state_ = LinkState::Closed;
  }
  LinkState State() const override { return state_; }

 private:
  Later later_;
  LinkState state_ = LinkState::Closed;
  unsigned serial_ = 0;  // counts Open and Close
};

/// The tag object on a system without COM: it can't be created.
class WithoutTags final : public TagServer {
 public:
  bool Create() override { return false; }
  std::int16_t Open(const std::string&, const std::string&, const std::string&) override {
    return 0;
  }
  std::int16_t TagWrite(const std::string&, const std::string&) override { return 0; }
  std::string TagRead(const std::string&) override { return {}; }
  std::int16_t Close() override { return 0; }
};

#ifdef _WIN32
using SystemDde = WinDdeTransport;
using SystemTags = WinTags;
#else
using SystemDde = WithoutDde;
using SystemTags = WithoutTags;
#endif

}  // namespace zek
