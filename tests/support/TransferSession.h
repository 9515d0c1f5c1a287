#pragma once

#include <map>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "support/TestSession.h"

namespace zek::test {

/// A session whose controller answers commands from a table, without DUS framing for object ONE
/// and with it for TWO.
class TransferSession : public TestSession {
 public:
  std::map<std::string, std::string> answers;  // command (no carriage return) to reply text
  std::vector<std::string> commands;           // all received commands, in order
  int replyMilliseconds = 50;
  bool pieces = true;  // the framing of an address without DUS number

  explicit TransferSession(const std::string& general = "") : TestSession(general) {
    socket.onConnected = [this] {
      if (pieces) socket.Say("<TRANSPARENT>");
    };
    socket.onSent = [this](std::string_view bytes) { Take(bytes); };
  }

  void SelectOne() { Select("ONE/AHU1"); }
  void SelectTwo(std::string_view control = "TWO/TSC1") {
    Select(control);
    pieces = false;
  }

  void Reply(const std::string& text, int milliseconds) {
    socket.Say(pieces ? "0001>" + text + "\xFF" : text, milliseconds);
  }

 private:
  void Take(std::string_view bytes) {
    std::string command(bytes);
    if (command.ends_with('\r')) command.pop_back();
    commands.push_back(command);
    const auto answer = answers.find(command);
    if (answer != answers.end()) Reply(answer->second, replyMilliseconds);
  }
};

}  // namespace zek::test
