#include "comm/DdeLink.h"

#include <utility>

#include "lang/TextNumbers.h"

namespace zek {
namespace {

std::string Application(const std::string& computer) {
  return computer.empty() ? "ZEK" : "\\\\" + computer + "\\NDDE$";
}

}  // namespace

void DdeLink::Open(const Topic& topic, const Attempt& /*attempt*/, Steps& /*steps*/) {
  returnDue_ = false;
  transport_.Open({Application(topic.Address), topic.TopicName});
}

bool DdeLink::Close(const Topic& /*topic*/, const Attempt& /*attempt*/, Steps& /*steps*/) {
  returnDue_ = false;
  transport_.Close();
  return true;
}

// Events run between the command and its return, so the next command may come first: it completes
// this one.
bool DdeLink::Write(std::string_view command) {
  if (!PokeReturn() || !transport_.Send(command)) return false;
  returnDue_ = NeedsReturn(command);
  RunPending();
  const bool taken = PokeReturn();
  RunPending();
  return taken;
}

// A poked text can't contain a carriage return; the DDE server makes one from "{13}".
bool DdeLink::PokeReturn() { return !std::exchange(returnDue_, false) || transport_.Send("{13}"); }

TextLoss DdeLink::Receive(std::string_view bytes, const HandOver& handOver) {
  handOver(bytes);
  return TextLoss::None;
}

std::string DdeLink::Where(const Topic& topic) const { return Application(topic.Address); }

std::int32_t DdeLink::ErrorText() const { return text::kDdeError; }

}  // namespace zek
