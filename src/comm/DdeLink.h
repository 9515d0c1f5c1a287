#pragma once

#include <cstdint>

#include "comm/TransportLink.h"

namespace zek {

/// Link for an empty address or a computer's name: DDE to the communication server.
class DdeLink final : public TransportLink {
 public:
  using TransportLink::TransportLink;

  void Open(const Topic& topic, const Attempt& attempt, Steps& steps) override;
  bool Close(const Topic& topic, const Attempt& attempt, Steps& steps) override;
  bool Write(std::string_view command) override;
  bool ReadsEscapes() const override { return true; }
  /// All text is the controller's: nothing that the program pokes comes back.
  TextLoss Receive(std::string_view bytes, const HandOver& handOver) override;
  std::string Where(const Topic& topic) const override;
  std::int32_t ErrorText() const override;

 private:
  bool PokeReturn();

  bool returnDue_ = false;  // the last command still lacks its carriage return
};

}  // namespace zek
