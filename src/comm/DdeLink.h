#pragma once

#include <cstdint>

#include "comm/TransportLink.h"

namespace zek {

/// Link for an empty address or a computer's name: DDE to the communication server.
class DdeLink final : public TransportLink {
 public:
  using TransportLink::TransportLink;

  void Open(Topic& topic, const Attempt& attempt) override;
  bool Close(Topic& topic, const Attempt& attempt) override;
  bool Write(std::string_view command) override;
  bool ReadsEscapes() const override { return true; }
  TextLoss Receive(std::string_view bytes, const HandOver& handOver) override;
  std::int32_t ErrorText() const override;

 private:
  bool writing_ = false;
};

}  // namespace zek
