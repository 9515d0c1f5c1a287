#pragma once

#include <map>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "support/TestSession.h"

namespace zek::faults {

/// A recorded transfer, trials/dialogues/*.txt. One entry a line:
///   ; comment
///   read-wdc 2 HOST:5100:3  the transfer, the generation, the topic's address or "DDE"
///   connect    a link is made
///   > bytes    the session must send exactly these bytes
///   < bytes    the answer; several such lines are one text. Over DDE without the sequence number
///   result, value, line    the result of the transfer; in a write: the content to send
/// Bytes have the escapes \r \n \\ \xNN.
struct Dialogue {
  struct Step {
    std::string sent;  // "" when a link is made
    std::string answer;
  };
  std::string name;
  bool write = false;
  Catalogue catalogue = Catalogue::Wdc;
  std::string generation;
  std::string address;  // "" for DDE
  std::vector<Step> steps;
  bool result = false;
  std::string value;
  std::vector<std::string> lines;

  std::size_t AnswerBytes() const;
};

/// All dialogues of the folder.
std::vector<Dialogue> LoadDialogues(const std::string& folder);

/// The result of a replay.
struct Outcome {
  bool result = false;
  std::string value;
  std::vector<std::string> lines;
  std::vector<std::string> log;
  std::string astray;  // the bytes that the session sent instead of the recorded ones
  bool operator==(const Outcome&) const = default;
};

/// A session that replays a dialogue repeatedly.
class Replay : private test::TestSession {
 public:
  explicit Replay(const Dialogue& dialogue);

  /// `cuts`: sorted places in all answer bytes, where one event ends and the next begins.
  Outcome Run(const std::vector<std::size_t>& cuts);

 private:
  void Answer(const std::string& sent);
  void Say(const std::string& part);

  const Dialogue& dialogue_;
  const std::vector<std::size_t>* cuts_ = nullptr;
  std::size_t step_ = 0;
  std::size_t place_ = 0;      // in all answer bytes
  std::int64_t lastSaid_ = 0;  // when the last event is due: a stream keeps its order
  std::string astray_;
};

}  // namespace zek::faults
