#pragma once

#include <optional>
#include <string>
#include <vector>

#include "faults/FaultCase.h"
#include "plant/PlantSession.h"
#include "support/TestSession.h"

namespace zek::faults {

/// The communication server and the controller behind it, with the fault of a case. It serves the
/// links and tags of a session and answers by `PlantSession`, so the controller's state is known.
///
/// Losses depend on the transport. After a lost byte TCP delivers and confirms nothing more. A DDE
/// poke or a written tag is refused at once. A single answer over DDE or tags can vanish.
///
/// In a write to a shared catalogue the fault begins when the fetch before it is over.
class FaultyPlant {
 public:
  FaultyPlant(test::TestSession& world, sim::Outstation& outstation, const FaultCase& what,
              std::size_t floodBytes);

  /// Ends the fault.
  void Repair();

 private:
  bool IsAt(int command) const { return active_ && what_.step.command == command; }
  bool Is(int command, Fault fault) const { return IsAt(command) && what_.fault == fault; }
  test::MemoryTransport& Link() const;

  void Arm();
  void Prepare();
  void OnConnected();
  void Greet();
  void LoseTheRest();
  void TakeLink(std::string_view bytes);
  bool TakeTag(const std::string& tag, const std::string& value);
  bool TakeCommand(const std::string& command);
  std::string Answer(const std::string& command);
  void AnswerWithFault(const std::string& command);
  void Garble(const std::string& before, const std::string& rest);
  void BeforeClose();
  void Disturb(int milliseconds);
  std::string Noise() const;
  bool IsRefusal() const;

  void Say(const std::string& text, int milliseconds = 50);
  void SayFlood(int milliseconds);
  void Update(const std::string& bytes, int milliseconds);
  void Reset(int milliseconds);

  test::TestSession& world_;
  sim::Outstation& outstation_;
  FaultCase what_;
  std::size_t floodBytes_;
  bool active_;  // the fault happens
  bool armed_ = active_;
  std::optional<sim::PlantSession> session_;
  std::string poked_;  // over DDE, still without its carriage return
  std::string held_;   // an answer that comes late
  int command_ = 0;    // of this connection
  bool hole_ = false;  // nothing gets through from now on
  bool dead_ = false;  // the tag server fails
  unsigned connection_ = 0;
};

}  // namespace zek::faults
