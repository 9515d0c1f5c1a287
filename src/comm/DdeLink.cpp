#include "comm/DdeLink.h"

#include "lang/TextNumbers.h"

namespace zek {
namespace {

std::string Application(const std::string& computer) {
  return computer.empty() ? "ZEK" : "\\\\" + computer + "\\NDDE$";
}

}  // namespace

void DdeLink::Open(Topic& topic, const Attempt& /*attempt*/) {
  if (State() != LinkState::Closed) transport_.Close();
  transport_.Open({Application(topic.Address), topic.TopicName});
}

bool DdeLink::Close(Topic& /*topic*/, const Attempt& /*attempt*/) {
  transport_.Close();
  return true;
}

bool DdeLink::Write(std::string_view command) {
  writing_ = true;
  bool taken = transport_.Send(command);
  RunPending();
  // A poked text can't contain a carriage return; the DDE server makes one from "{13}".
  if (NeedsReturn(command)) taken = taken && transport_.Send("{13}");
  RunPending();
  writing_ = false;
  return taken;
}

// The item returns every poked text. That echo is not a reply.
TextLoss DdeLink::Receive(std::string_view bytes, const HandOver& handOver) {
  if (!writing_) handOver(bytes);
  return TextLoss::None;
}

std::int32_t DdeLink::ErrorText() const { return text::kDdeError; }

}  // namespace zek
