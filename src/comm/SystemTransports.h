#pragma once

// The DDE transport and the tag object of the target system.

#include <memory>
#include <string>
#include <utility>

#include "comm/TagThread.h"
#ifdef _WIN32
#include "comm/WinDdeTransport.h"
#include "comm/WinTags.h"
#endif
#include "comm/Transport.h"
#include "lang/TextNumbers.h"
#include "system/Turn.h"

namespace zek {

/// DDE on a system without DDE: Open fails.
class WithoutDde final : public Transport {
 public:
  /// Posted calls must not run after the end of this object.
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
  unsigned serial_ = 0;  // counts Open and Close; a posted call of an older number does nothing
};

#ifdef _WIN32
using SystemDde = WinDdeTransport;
using SystemTagObject = WinTags;
inline void RunSystemMessages() { RunWinMessages(); }
#else
/// The tag object on a system without COM: Create fails.
class WithoutTags final : public TagObject {
 public:
  bool Create() override { return false; }
  std::int16_t Open(const std::string&, const std::string&, const std::string&) override {
    return 0;
  }
  std::int16_t TagWrite(const std::string&, const std::string&) override { return 0; }
  std::string TagRead(const std::string&) override { return {}; }
  std::int16_t Close() override { return 0; }
};

using SystemDde = WithoutDde;
using SystemTagObject = WithoutTags;
inline void RunSystemMessages() {}
#endif

class SystemTags final : public TagThread {
 public:
  explicit SystemTags(Later later)
      : TagThread([] { return std::make_unique<SystemTagObject>(); }, RunSystemMessages,
                  std::move(later)) {}
};

}  // namespace zek
