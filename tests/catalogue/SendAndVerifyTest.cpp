#include <gtest/gtest.h>
#include <map>

#include "formats/ExceptionText.h"
#include "support/SessionPlayer.h"

namespace zek {
namespace {

// A ZEK1 that keeps lines by their number, as far as its faults let it.
//   stored LINE               it has this line; swallow LINE: it does not take this one, or any
//   refuse LINE               it answers "ERROR 12" to it
//   replaces                  each write replaces the whole catalogue
//   at-list mute              what happens when it is asked for the catalogue after a write:
//                             "mute", "hangup", or another command; "at-list" ends that
//   at-list second mute       the same when it is asked for the second time
//   send                      saves the lines with yes, and forgets them
//   forget                    what was read is no longer known
class StorePlayer : public test::SessionPlayer {
 public:
  StorePlayer() {
    proc.settings.VerifyAfterWrite = true;
    proc.settings.AlwaysUseDSS = true;
    socket.onSent = [this](std::string_view bytes) {
      Take(bytes.ends_with('\r') ? bytes.substr(0, bytes.size() - 1) : bytes);
    };
    SelectOne();
  }

 protected:
  std::string Do(const std::string& what, const std::string& rest) override {
    if (what == "stored") stored_[std::stoi(rest)] = rest;
    if (what == "gone") stored_.erase(std::stoi(rest));
    if (what == "swallow") swallowed_ = rest;
    if (what == "refuse") refused_ = rest;
    if (what == "replaces") replaces_ = true;
    if (what == "at-list") atList_ = rest;
    if (what == "hangup" || what == "lost") socket.HangUp();
    if (what == "lost") socket.reachable = false;
    if (what == "unverified") proc.settings.VerifyAfterWrite = false;
    if (what == "local") proc.settings.AlwaysUseDSS = !(proc.settings.AlwaysUseLocal = true);
    if (what == "forget") ForgetRead();
    if (what != "send") return SessionPlayer::Do(what, rest);
    prompts.answers.emplace_back(rest != "no");
    std::string sent = SessionPlayer::Do("save", "WDC");
    toSave.clear();
    return sent;
  }

 private:
  void Take(std::string_view command) {
    commands.emplace_back(command);
    if (command.size() > 5 && command[0] == ' ' && command != swallowed_ && command != refused_)
      stored_[std::stoi(std::string(command))] = command;
    if (command == refused_) Reply("ERROR 12\r\n", 50);
    if (replaces_ && command == ".WDC") stored_.clear();
    written_ = written_ || command == ".WDC";
    if (command != "LIST WDC") return;
    std::string listing = "WDC\r\n";
    for (const auto& [number, line] : stored_) listing += line + "\r\n";
    const std::string fault = FaultAtList();
    Play(fault);
    if (fault != "mute" && fault != "cancel 0" && fault != "quit 0")
      Reply(listing + "EXIT\r\n", 50);
  }

  std::string FaultAtList() {
    if (!written_) return {};
    constexpr std::string_view later = "second ";
    written_ = atList_.starts_with(later);
    if (!written_) return atList_;
    atList_.erase(0, later.size());
    return {};
  }

  std::map<int, std::string> stored_;
  std::string swallowed_;
  std::string refused_;
  std::string atList_;
  bool written_ = false;
  bool replaces_ = false;
};

TEST(SendAndVerify, Cases) {
  test::CheckCases("sending.txt",
                   [](const test::TextCase& given) { return StorePlayer().PlayAll(given.given); });
}

TEST(SendAndVerify, StopTimesThatNoLineHoldsAreTold) {
  StorePlayer session;
  ExceptionTable table;
  table.rows[0] = {true, DateMoment(2026, 12, 24) + 480, 1020};
  table.rows[1] = {true, DateMoment(2026, 12, 25) + 480, DateMoment(2026, 12, 26)};
  table.rows[2] = {true, DateMoment(2026, 12, 26) + 480, 0};
  EXPECT_TRUE(LostStopTimes(table, Generation::Zek2).empty());
  const std::vector<std::string> lost = LostStopTimes(table, Generation::Zek1);
  EXPECT_EQ(lost, std::vector<std::string>{"24-DEC-26,08:00..17:00"});
  session.SaveWithout({lost[0], std::string(201, 'x'), "\x05" + std::string(199, 'y')},
                      {"12:00 overlaps"});
  const std::string told = session.prompts.details.at(0);
  for (const std::string& part :
       {"  " + lost[0] + "  (", "  " + std::string(200, 'x') + "\x85  (",
        "  <5>" + std::string(199, 'y') + "  (", std::string("  12:00 overlaps\r\n")})
    EXPECT_NE(told.find(part), std::string::npos) << told;
}

}  // namespace
}  // namespace zek
