#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "comm/TagServer.h"
#include "support/VirtualTurn.h"

namespace zek::test {

/// A tag object that records every call. It refuses to write the values in `refused`. With `echoes`
/// it repeats the log-on password in all its texts.
class FakeTags final : public TagObject {
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
  std::string last;      // call, as in `calls`; a read is "?"

  bool Create() override { return exists; }
  std::int16_t Open(const std::string& computer, const std::string& user,
                    const std::string& given) override {
    password = given;
    Record("Open " + computer + " " + user);
    Echo("Open");
    return opens ? std::int16_t{-1} : std::int16_t{0};
  }
  std::int16_t TagWrite(const std::string& tag, const std::string& value) override {
    Record(tag + "=" + value);
    Echo("TagWrite");
    return refused.contains(value) || !takes(tag, value) ? std::int16_t{0} : std::int16_t{1};
  }
  std::string TagRead(const std::string& /*tag*/) override {
    last = "?";
    if (!faultInReading.empty()) fault = faultInReading;
    Echo("TagRead");
    if (replies.empty()) return {};
    std::string reply = replies.front();
    replies.pop_front();
    return reply;
  }
  std::int16_t Close() override {
    Record("Close");
    Echo("Close");
    return 1;
  }
  std::string TakeFault() override { return std::exchange(fault, {}); }

 private:
  void Record(const std::string& call) {
    last = call;
    calls.push_back(call);
  }
  void Echo(const std::string& call) {
    if (echoes && fault.empty()) fault = call + ": user:" + password + "@server " + password;
  }
};

/// Makes the calls one after the other. Each takes `blocks` milliseconds of virtual time; without,
/// the answer comes at once.
class FakeTagServer final : public TagServer {
 public:
  FakeTagServer(FakeTags& object, VirtualTurn& turn) : object_(object), turn_(turn) {}

  std::function<std::int64_t(const std::string& call)> blocks = [](const std::string&) {
    return 0;
  };

  TagAnswer Create() override {
    const bool made = object_.Create();
    return {true, made ? std::int16_t{1} : std::int16_t{0}, {}, object_.TakeFault()};
  }
  void Begin(Call call, Done done) override {
    waiting_.emplace_back(std::move(call), std::move(done));
    if (!busy_) Next();
  }

 private:
  void Next() {
    const auto order = std::move(waiting_.front());
    waiting_.pop_front();
    TagAnswer answer;
    order.first(object_, answer);
    answer.arrived = true;
    answer.fault = object_.TakeFault();
    busy_ = true;
    const auto finish = [this, done = order.second, answer] {
      busy_ = false;
      if (!waiting_.empty()) Next();
      done(answer);
    };
    const std::int64_t milliseconds = blocks(object_.last);
    if (milliseconds == 0) return finish();
    turn_.After(milliseconds, finish);
  }

  FakeTags& object_;
  VirtualTurn& turn_;
  std::deque<std::pair<Call, Done>> waiting_;
  bool busy_ = false;
};

}  // namespace zek::test
