#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>

#include "support/CaseFile.h"
#include "support/TestSession.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr std::string_view kAll =
    "[Open  ][NETTAG=2][NET=transparent open][NET=LIST][NET=transparent close][NETTAG=1][Close]"
    "[Open  ][NETTAG=0][Close]";

// Connects, sends a command, listens for 40 s, disconnects and ends. "<call>;<seconds>" is a call
// that blocks so long, once; "?" is a read. ";<seconds>" after it is when the program is told to
// end. Returns the seconds of each step, the messages, and the calls that were made.
std::string Used(const test::TextCase& given) {
  constexpr std::int16_t net = 3;
  test::TestSession session("TagMode=YES\r\n");
  Connection& connection = session.proc.connection;
  std::string call(GetField(given.head, 0, ";"));
  const auto milliseconds = [&given](std::size_t field) {
    return static_cast<std::int64_t>(1000 * Val(GetField(given.head, field, ";")));
  };
  const std::int64_t quit = milliseconds(2);
  if (quit > 0) session.turn.After(quit, [&] { session.turn.Quit(); });
  session.tagServer.blocks = [&](const std::string& made) {
    if (made.substr(0, made.find('\r')) != call) return std::int64_t{0};
    call.clear();
    return milliseconds(1);
  };
  auto lasted = [&session, before = std::int64_t{0}](const char* what) mutable {
    const std::int64_t from = std::exchange(before, session.turn.Now());
    return what + std::to_string((before - from) / 1000) + " s";
  };
  std::string outcome;
  connection.Connect(net);
  outcome += lasted("");
  connection.SendCommand("LIST");
  session.proc.waits.WaitSeconds(40);
  outcome += lasted(", ");
  connection.Disconnect();
  outcome += lasted(", ");
  connection.CloseAllTags();
  outcome += lasted(", ");
  for (const std::string& shown : session.prompts.shown) outcome += " <" + shown + ">";
  std::string calls;
  for (const std::string& made : session.tags.calls) calls += "[" + made + "]";
  std::replace(outcome.begin(), outcome.end(), '\n', '/');
  std::erase(outcome, '\r');
  std::erase(calls, '\r');
  return outcome + (calls == kAll ? ", all" : "\n" + calls) + "\n";
}

TEST(TagLink, ACallThatBlocks) { test::CheckCases("tags.txt", Used); }

}  // namespace
}  // namespace zek
