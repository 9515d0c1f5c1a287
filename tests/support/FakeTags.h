#pragma once

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "comm/TagLink.h"

namespace zek::test {

/// A tag server that records every call. It refuses to write the values in `refused`. With `echoes`
/// it repeats the log-on password in all its texts.
class FakeTags final : public TagServer {
 public:
  std::vector<std::string> calls;
  std::set<std::string> refused;
  bool exists = true;
  bool opens = true;
  std::deque<std::string> replies;
  /// Called for every write; the result zero refuses it.
  std::function<bool(const std::string& tag, const std::string& value)> takes =
      [](const std::string&, const std::string&) { return true; };
  std::string fault;           // why the next call fails
  std::string faultInReading;  // why every read fails
  bool echoes = false;
  std::string password;  // of the last log-on

  bool Create() override { return exists; }
  std::int16_t Open(const std::string& computer, const std::string& user,
                    const std::string& given) override {
    password = given;
    calls.push_back("Open " + computer + " " + user);
    Echo("Open");
    return opens ? std::int16_t{-1} : std::int16_t{0};
  }
  std::int16_t TagWrite(const std::string& tag, const std::string& value) override {
    calls.push_back(tag + "=" + value);
    Echo("TagWrite");
    return refused.contains(value) || !takes(tag, value) ? std::int16_t{0} : std::int16_t{1};
  }
  std::string TagRead(const std::string& /*tag*/) override {
    if (!faultInReading.empty()) fault = faultInReading;
    Echo("TagRead");
    if (replies.empty()) return {};
    std::string reply = replies.front();
    replies.pop_front();
    return reply;
  }
  std::int16_t Close() override {
    calls.emplace_back("Close");
    Echo("Close");
    return 1;
  }
  std::string TakeFault() override { return std::exchange(fault, {}); }

 private:
  void Echo(const std::string& call) {
    if (echoes && fault.empty()) fault = call + ": user:" + password + "@server " + password;
  }
};

}  // namespace zek::test
