#include "plant/PlantConversation.h"

#include <algorithm>
#include <utility>

#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek::sim {
namespace {

// In characters. As with a real server, pieces do not end at line ends.
constexpr std::size_t kLongestPiece = 50;
constexpr int kSequences = 10000;

bool IsStray(char byte) { return byte == 0 || byte == 2 || byte == 3; }

bool IsControl(char byte) { return static_cast<unsigned char>(byte) < 32; }

// Returns a reply line as a DUS connection delivers it: between characters 2 and 3, with a 0
// inside.
std::string WithStrays(std::string_view line) {
  const std::size_t middle = line.size() / 2;
  std::string text = "\x02";
  text += line.substr(0, middle);
  text += '\0';
  text += line.substr(middle);
  text += "\r\n\x03";
  return text;
}

}  // namespace

PlantConversation::PlantConversation(Plant& plant) : plant_(&plant) {
  Outstation* const outstation = plant.FindTransparent();
  if (outstation != nullptr) session_.emplace(*outstation);
}

std::string PlantConversation::Greeting() {
  if (greeted_ || dus_) return {};
  greeted_ = true;
  return "<TRANSPARENT>";
}

std::string PlantConversation::Receive(std::string_view bytes) {
  std::string answer;
  for (const char byte : bytes) answer += Take(byte);
  return answer;
}

std::string PlantConversation::Take(char byte) {
  const bool afterReturn = std::exchange(afterReturn_, byte == '\r');
  if ((afterReturn && byte == '\n') || (dus_ && IsStray(byte))) return {};
  if (byte == '\r') {
    const std::string command = std::exchange(command_, {});
    if (!std::exchange(tooLong_, false)) return Run(command);
    first_ = false;
    return Greeting() + Framed({{}, true});
  }
  if (tooLong_) return {};
  if (command_.empty() && IsControl(byte)) return Run({&byte, 1});
  command_ += byte;
  tooLong_ = command_.size() > kLongestCommand;
  if (tooLong_) std::string().swap(command_);
  return {};
}

std::string PlantConversation::Run(std::string_view command) {
  if (std::exchange(first_, false) && SelectDus(command)) {
    return session_ ? std::string() : Framed({{"ERROR DUS SAKNAS"}, false});
  }
  const std::string greeting = Greeting();
  if (!session_) return greeting + Framed({{"ERROR DUC SAKNAS"}, false});
  return greeting + Framed(session_->Answer(command));
}

bool PlantConversation::SelectDus(std::string_view command) {
  if (!EqualNoCase(command.substr(0, 4), "DUS:")) return false;
  const std::string_view number = command.substr(4);
  Outstation* const outstation =
      IsNumeric(number) ? plant_->FindDus(ToInt16(Val(number)).value_or(0)) : nullptr;
  dus_ = true;
  session_.reset();
  if (outstation != nullptr) session_.emplace(*outstation);
  return true;
}

std::string PlantConversation::Framed(const PlantReply& reply) {
  std::string text;
  if (dus_) {
    for (const std::string& line : reply.lines) text += WithStrays(line);
    if (reply.refused) text += WithStrays("ERROR RADEN GODTAS EJ");
    return text;
  }
  for (const std::string& line : reply.lines) text += line + "\r\n";
  if (reply.refused) text += "\x02\r\n";
  return InPieces(text);
}

std::string PlantConversation::InPieces(std::string_view text) {
  std::string pieces;
  while (!text.empty()) {
    const std::string_view piece = text.substr(0, kLongestPiece);
    pieces.append(ZeroPadded(sequence_, 4)).append(">").append(piece);
    pieces += kPieceEnd;
    text.remove_prefix(piece.size());
    sequence_ = (sequence_ + 1) % kSequences;
  }
  return pieces;
}

}  // namespace zek::sim
