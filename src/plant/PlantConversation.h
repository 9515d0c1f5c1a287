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
/// One port serves two kinds of clients. A client whose first command is "DUS:n" talks to
/// outstation n in plain text. Any other client is transparent: it talks to the outstation without
/// a DUS number and gets its replies in pieces.
///
/// A transparent client sends nothing before "<TRANSPARENT>". The owner of the connection therefore
/// calls `Greeting` after a short delay without a "DUS:" command. A slow DUS client gets the
/// greeting too; it reads it as "the link is up", which is harmless, and its "DUS:n" still counts.
/// A client that sends another command at once gets the greeting before its first reply.
///
/// Commands end with a carriage return; a line feed after it is ignored. A control character
/// outside a command, such as ENQ, is a command of its own. The reply to a refused line is
/// character 2 on a transparent connection and an "ERROR" line on a DUS connection, where
/// characters 0, 2 and 3 are strays.
class PlantConversation {
 public:
  /// Limit in characters. A longer command is dropped, and refused at its end.
  static constexpr std::size_t kLongestCommand = 65536;

  explicit PlantConversation(Plant& plant);

  /// A transparent connection to this outstation; "DUS:" has no effect.
  explicit PlantConversation(Outstation& outstation) : session_(outstation), first_(false) {}

  /// The character after each transparent piece.
  static constexpr char kPieceEnd = '\xFF';

  /// Returns "<TRANSPARENT>" once, without framing; then, and for a DUS client, "".
  std::string Greeting();

  /// Processes bytes from the client and returns the bytes to send back. The bytes may be split in
  /// any way.
  std::string Receive(std::string_view bytes);

  /// True while the client writes a catalogue.
  bool TakingLines() const { return session_ && session_->TakingLines(); }

 private:
  std::string Take(char byte);
  std::string Run(std::string_view command);
  bool SelectDus(std::string_view command);
  std::string Framed(const PlantReply& reply);
  std::string InPieces(std::string_view text);

  Plant* plant_ = nullptr;               // for "DUS:n"; null for a fixed outstation
  std::optional<PlantSession> session_;  // nothing: no such outstation
  std::string command_;                  // the unfinished command
  bool tooLong_ = false;                 // the unfinished command is being dropped
  bool afterReturn_ = false;
  bool first_ = true;  // no command received yet
  bool greeted_ = false;
  bool dus_ = false;
  int sequence_ = 0;  // number of the next piece, 0 to 9999
};

}  // namespace zek::sim
