#pragma once

#include "comm/Link.h"
#include "comm/TagServer.h"

namespace zek {

/// The DDE link of a system that has no DDE: it stays closed, so that a connect fails.
class WithoutDde final : public Link {
 public:
  void Open(const LinkTarget& /*target*/) override {}
  bool Send(std::string_view /*bytes*/) override { return false; }
  bool AllSent() const override { return true; }
  void Close() override {}
  LinkState State() const override { return LinkState::Closed; }
};

/// The tag object of a system that has no COM: it can't be created.
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

}  // namespace zek
