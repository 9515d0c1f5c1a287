#pragma once

#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "formats/Generation.h"

namespace zek::faults {

/// How the session reaches the controller.
enum class Transport { TcpPieces, TcpDus, Dde, Tags };

/// The fault.
enum class Fault {
  Drop,      // bytes are lost on their way, if the transport can lose any: see FaultyPlant
  Lost,      // the server accepted the command and never gave it to the controller
  Stall,     // no answer, or no more of it
  Garbage,   // all 256 byte values before the answer
  Error,     // "ERROR" instead of what was asked for
  Stx,       // the same with character 2
  HalfLine,  // the answer ends within a line
  Flood,     // a line of many megabytes before the answer
  Reset,     // the link breaks
  Late,      // the answer to the step before, a refusal in a write, comes after the next command
  Char0,
  Char2,
  Char3,
  Char23,
  Char255,  // these characters are in the middle of a line
};
inline constexpr int kFaults = 15;

/// The place in the dialogue. A step is a command, counted from 0 on each connection, and the line
/// of its answer before which the fault occurs. There are two more steps before and after all
/// commands.
struct Step {
  const char* name;
  int command;
  int line = 0;
};
inline constexpr int kConnect = -2;
inline constexpr int kLinkUp = -1;
inline constexpr int kClose = 1000;
inline constexpr int kDfvLine = 100;   // wherever ".DFV" stands in the answer
inline constexpr int kExitLine = 101;  // the answer's last line
inline constexpr int kLines = 5;       // of every catalogue here, after a header

struct FaultCase {
  bool write = false;
  Step step{};
  Fault fault = Fault::Drop;
  Catalogue catalogue = Catalogue::Sdc;
  Generation generation = Generation::Zek1;
  Transport transport = Transport::TcpPieces;
  bool always = false;  // at every attempt, not only at the first

  bool IsTcp() const { return transport == Transport::TcpPieces || transport == Transport::TcpDus; }
  /// A write to a catalogue of all controls, which is fetched before and read back after it.
  bool WritesShared() const {
    return write && generation == Generation::Zek1 && catalogue != Catalogue::Sdc;
  }
  /// Weekdays and exceptions of a ZEK2 have a ".DFV" value.
  bool HasDfv() const { return generation == Generation::Zek2 && catalogue != Catalogue::Sdc; }
  /// The number of the "EXIT" that ends a write.
  int LastCommand() const { return write ? 3 + kLines + (HasDfv() ? 1 : 0) : 1; }
  bool InListing() const { return step.line > 0; }

  /// "read, first line, garbage, WDC, ZEK2, DDE, always"
  std::string Name() const;
};

/// All cases, without faults that have no meaning at a step (such as a slow close over DDE).
std::vector<FaultCase> ReadCases();
std::vector<FaultCase> WriteCases();

}  // namespace zek::faults
