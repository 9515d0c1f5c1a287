#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "plant/Plant.h"
#include "plant/PlantSession.h"

namespace zek::sim {

/// One connection to the communication server: bytes in, bytes out, no socket and no clock.
///
/// One port serves both kinds of clients, and the first command tells them apart. A client that
/// begins with "DUS:n" talks to outstation n in plain text; every other one is passed through to
/// the outstation without DUS number, transparently, in pieces. But a transparent client says
/// nothing before it has seen "<TRANSPARENT>", so somebody must speak first: whoever owns the
/// connection calls `Greeting` when the client has had a moment to say "DUS:" and did not. A DUS
/// client that is slower than that gets the greeting too; it takes such a text as "the link is up",
/// which does no harm, and its "DUS:n" still counts. A client that talks at once without "DUS:"
/// gets the greeting before its first reply.
///
/// Commands end with a carriage return (a line feed after it is ignored); a control character
/// that stands alone, such as ENQ, is a command by itself. A refused line is answered with
/// character 2 on a transparent connection and with an "ERROR" line on a DUS connection, where
/// characters 2 are strays like 0 and 3.
class PlantConversation {
 public:
  /// Longer commands are dropped and refused when they end.
  static constexpr std::size_t kLongestCommand = 65536;

  explicit PlantConversation(Plant& plant);

  /// A connection that was made to this outstation: transparent from the start, without "DUS:".
  explicit PlantConversation(Outstation& outstation) : session_(outstation), first_(false) {}

  /// The character behind each transparent piece.
  static constexpr char kPieceEnd = '\xFF';

  /// "<TRANSPARENT>", as it stands and once only; "" when it was sent or the client has a DUS.
  std::string Greeting();

  /// Takes what came from the client and returns what to send back. How the bytes are cut into
  /// calls makes no difference.
  std::string Receive(std::string_view bytes);

  /// True while the client is in the middle of writing a catalogue.
  bool TakingLines() const { return session_ && session_->TakingLines(); }

 private:
  std::string Take(char byte);
  std::string Run(std::string_view command);
  bool SelectDus(std::string_view command);
  std::string Framed(const PlantReply& reply);
  std::string InPieces(std::string_view text);

  Plant* plant_ = nullptr;               // to choose an outstation from
  std::optional<PlantSession> session_;  // nothing: no such outstation
  std::string command_;                  // what has come of the next one
  bool tooLong_ = false;                 // the next one is being dropped
  bool afterReturn_ = false;
  bool first_ = true;  // no command has come yet
  bool greeted_ = false;
  bool dus_ = false;
  int sequence_ = 0;  // of the next piece, 0 to 9999
};

}  // namespace zek::sim
