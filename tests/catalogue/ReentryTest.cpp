#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>

#include "export/BatchExport.h"
#include "support/TransferSession.h"

// Waits run events, so whatever a user may do can come from inside any of them. Each operation is
// run once to find its wait points, then again for every point and every action.
namespace zek {
namespace {

using Shown = std::vector<std::string>;
constexpr std::int16_t kOne = 0;
constexpr std::int16_t kTwo = 1;
constexpr std::int16_t kTagged = 3;
constexpr std::size_t kAttempts = 3;
constexpr std::int64_t kLongestRun = 20LL * 60 * 1000;  // of an operation, with what came inside

const Shown kRead = {"\x05", "LIST "};
const Shown kWriteOne = {"EXIT", "EXIT", ".WDC", " 1000 !AHU1!MO", " 1001 !AHU1!TU", "EXIT"};
const Shown kWriteTwo = {"EXIT",           "EXIT",       "TSC1.WDC", " 1000 !AHU1!MO",
                         " 1001 !AHU1!TU", "TSC1.DFV=.", "EXIT"};

// Where something is done: at a moment, or while a command is being handed over.
struct WaitPoint {
  std::int64_t milliseconds = 0;  // since the operation began
  std::size_t command = 0;        // counted from 1; 0: by time
};

/// A session that notes what the controller gets, by connection, in a world where everything
/// takes its time.
class Session : public test::TransferSession {
 public:
  explicit Session(bool byTags)
      : TransferSession(byTags ? "TagMode=YES\r\nConnectDelayTime=1\r\n"
                                 "DisconnectDelayTime=1\r\n"
                               : "") {
    profile.WriteIni("TCPIP", "SendTimeOut", "5");
    profile.WriteIni("TCPIP", "DelayAfterConnect", "1");
    proc.settings.DisconnectDelay = 5;
    socket.closeMilliseconds = 300;
    socket.confirmMilliseconds = 1500;
    socket.openMilliseconds = 100;
    socket.onConnected = [this] {
      connections.emplace_back();
      pieces = proc.connection.PendingTopic != std::to_string(kTwo);
      if (pieces) socket.Say("<TRANSPARENT>", 100);
    };
    socket.onSent = [this, take = socket.onSent](std::string_view bytes) {
      take(bytes);
      if (connections.empty()) return;
      connections.back().push_back(commands.back());
      if (begun_ && commands.size() - commandsBefore_ == point_.command) Act();
    };
    const std::string exit = "EXIT\r\n";
    for (const char* list : {"SDC", "OVC", "PLT7", "TSC1.EXC", "PLT7.EXC"})
      answers[std::string("LIST ") + list] = exit;
    answers["LIST WDC"] = kLine + "\r\n" + exit;
    answers["LIST TSC1"] = kLine + "\r\n" + exit;
    answers["\x05"] = "READY\r\n";
    answers["TIME"] = "12:00\r\n";
    SelectOne();
    prompts.answers = {true};
    batch = std::make_unique<BatchExport>(proc);
  }

  // From now on `action` comes at `point`.
  void Begin(WaitPoint point, std::function<void(Session&)> action) {
    point_ = point;
    action_ = std::move(action);
    begun_ = true;
    start_ = turn.Now();
    commandsBefore_ = commands.size();
    connections.clear();
    if (socket.State() == LinkState::Connected) connections.emplace_back();
    if (point.command == 0) turn.After(point.milliseconds, [this] { action_(*this); });
  }
  std::int64_t Lasted() const { return turn.Now() - start_; }
  std::size_t CommandsSince() const { return commands.size() - commandsBefore_; }

  // All that tells one wait from another.
  std::string Waiting() const {
    const auto runs = [](std::int16_t countdown) { return countdown > 0 ? "1" : "0"; };
    return proc.status.Waiting + "/" + std::to_string(proc.status.Hourglass + proc.status.Busy) +
           runs(proc.countdowns.WaitCountdown) + runs(proc.countdowns.AfterConnectCountdown) +
           runs(proc.countdowns.DelayCountdown) + runs(proc.countdowns.ReplyCountdown) + "/" +
           std::to_string(static_cast<int>(proc.transfer.Kind)) + "/" +
           std::to_string(proc.connection.CurrentTopic) + proc.connection.PendingTopic + "/" +
           std::to_string(static_cast<int>(socket.State())) + "/" + std::to_string(commands.size());
  }

  inline static const std::string kLine =
      " 1000 !AHU1        !MO..FR       !07:00..16:30             !21       !17";
  std::vector<Shown> connections;
  std::unique_ptr<BatchExport> batch;

 private:
  void Act() {
    turn.After(0, [this] { action_(*this); });
  }

  WaitPoint point_;
  std::function<void(Session&)> action_;
  bool begun_ = false;
  std::int64_t start_ = 0;
  std::size_t commandsBefore_ = 0;
};

struct Operation {
  const char* name;
  bool tags;
  std::function<void(Session&)> prepare;
  std::function<bool(Session&)> run;
  Shown sent;  // what one connection has got whole when `run` says true
};

struct Action {
  const char* name;
  std::function<void(Session&)> act;
};

void Nothing(Session& /*session*/) {}

bool Connected(Session& session, std::int16_t topic) {
  session.proc.connection.Connect(topic);
  return session.proc.connection.CurrentTopic == topic;
}

bool Save(Session& session) { return session.Save({" 1000 !AHU1!MO", " 1001 !AHU1!TU"}); }

bool Export(Session& session) {
  session.batch->Start();
  while (session.batch->IsRunning()) session.batch->Tick();
  return false;
}

const std::vector<Operation> kOperations = {
    {"connect", false, Nothing, [](Session& s) { return Connected(s, kOne); }, {}},
    {"connect with DUS", false, Nothing, [](Session& s) { return Connected(s, kTwo); }, {}},
    {"connect another",
     false,
     [](Session& s) { Connected(s, kTwo); },
     [](Session& s) { return Connected(s, kOne); },
     {}},
    {"disconnect",
     false,
     [](Session& s) { Connected(s, kOne); },
     [](Session& s) { return s.proc.connection.Disconnect(); },
     {}},
    {"command",
     false,
     [](Session& s) { Connected(s, kOne); },
     [](Session& s) { return s.proc.connection.SendCommand("TIME"); },
     {}},
    {"command without answer",
     false,
     [](Session& s) { Connected(s, kTwo); },
     [](Session& s) { return s.proc.connection.SendCommand("X"); },
     {}},
    {"tag connect", true, Nothing, [](Session& s) { return Connected(s, kTagged); }, {}},
    {"tag disconnect",
     true,
     [](Session& s) { Connected(s, kTagged); },
     [](Session& s) { return s.proc.connection.Disconnect(); },
     {}},
    {"get", false, Nothing, [](Session& s) { return s.Get(); }, kRead},
    {"get of a named control", false, [](Session& s) { s.SelectTwo(); },
     [](Session& s) { return s.Get(); }, kRead},
    {"get in vain", false, [](Session& s) { s.answers.erase("LIST WDC"); },
     [](Session& s) { return s.Get(); }, kRead},
    {"save", false, Nothing, Save, kWriteOne},
    {"save of a named control", false, [](Session& s) { s.SelectTwo(); }, Save, kWriteTwo},
    {"batch export", false, Nothing, Export, {}},
};

// Typed commands and other topics are to be had only while no catalogue is transferred.
const std::vector<Action> kActions = {
    {"disconnect", [](Session& s) { s.proc.connection.Disconnect(); }},
    {"connect", [](Session& s) { s.proc.connection.Connect(kOne); }},
    {"connect another", [](Session& s) { s.proc.connection.Connect(kTwo); }},
    {"cancel",
     [](Session& s) {
       s.batch->Cancel();
       if (s.proc.status.Busy > 0) s.proc.waits.Cancel();
     }},
    {"quit", [](Session& s) { s.turn.Quit(); }},
    {"get", [](Session& s) { s.Get(); }},
    {"erase", [](Session& s) { s.Erase(); }},
    {"batch tick", [](Session& s) { s.batch->Tick(); }},
    {"command",
     [](Session& s) {
       if (s.proc.status.Busy == 0) s.proc.connection.SendCommand("TIME");
     }},
};

bool IsTyped(const std::string& command) { return command == "TIME" || command == "X"; }

// What a connection has got of catalogue commands, and whether it is the beginning of one transfer.
Shown TransferOf(Shown connection) {
  std::erase_if(connection, [](const std::string& each) { return IsTyped(each); });
  if (!connection.empty() && connection.front() == "DUS:3") connection.erase(connection.begin());
  for (std::string& each : connection)
    if (each.starts_with("LIST ")) each = "LIST ";
  return connection;
}
bool BeginsOneTransfer(const Shown& got) {
  const std::array wholes{kRead, Shown{"LIST "}, kWriteOne, kWriteTwo};
  return std::any_of(wholes.begin(), wholes.end(), [&got](const Shown& whole) {
    return got.size() <= whole.size() && std::equal(got.begin(), got.end(), whole.begin());
  });
}

// "" or what is wrong with what the controller got.
std::string FaultOfTraffic(const Session& session, const Operation& operation, bool result) {
  std::size_t whole = 0;
  for (const Shown& connection : session.connections) {
    const Shown got = TransferOf(connection);
    if (!BeginsOneTransfer(got)) return "transfers are mixed";
    whole += !operation.sent.empty() && got == operation.sent ? 1U : 0U;
  }
  if (operation.sent.empty()) return {};
  if (result && whole == 0) return "told as done, and was not";
  if (whole > kAttempts || session.connections.size() > kAttempts + 2) return "done too often";
  return {};
}

std::string FaultOfState(const Session& session) {
  const ZV_Proc& proc = session.proc;
  const Connection& connection = proc.connection;
  if (session.Lasted() > kLongestRun) return "it lasted too long";
  if (proc.transfer.Kind != TransferKind::Idle) return "a transfer is left over";
  if (proc.status.Busy != 0 || proc.status.Hourglass != 0) return "busy";
  if (!proc.status.Waiting.empty()) return "waiting for " + proc.status.Waiting;
  if (connection.Sending) return "sending";
  if (connection.CurrentTopic < 0 && !connection.PendingTopic.empty()) return "half connected";
  const bool open = session.socket.State() == LinkState::Connected;
  if (!proc.settings.TagMode && open != (connection.CurrentTopic >= 0))
    return "link and topic differ";
  return {};
}

std::string FaultOfNextGet(Session& session) {
  ZV_Proc& proc = session.proc;
  if (session.turn.Quitting()) return {};
  if (proc.settings.TagMode) return Connected(session, kTagged) ? "" : "no connection afterwards";
  session.SelectOne();
  session.answers["LIST WDC"] = Session::kLine + "\r\nEXIT\r\n";
  session.prompts.answers.clear();
  const bool got = session.Get();
  const bool whole = session.GotLines() == Shown{Session::kLine};
  return got && whole ? "" : "no catalogue afterwards";
}

// Runs the operation without disturbance and finds where it waits.
std::vector<WaitPoint> WaitPointsOf(const Operation& operation) {
  Session session(operation.tags);
  operation.prepare(session);
  std::vector<WaitPoint> points;
  std::string waiting;
  bool over = false;
  std::function<void()> look = [&] {
    if (over) return;
    if (session.Waiting() != waiting) {
      waiting = session.Waiting();
      points.push_back({session.Lasted(), 0});
      points.push_back({session.Lasted() + 10, 0});
    }
    session.turn.After(10, look);
  };
  session.Begin({}, Nothing);
  session.turn.After(0, look);
  operation.run(session);
  over = true;
  std::erase_if(points,
                [&](const WaitPoint& each) { return each.milliseconds > session.Lasted(); });
  for (std::size_t i = 1; i <= session.CommandsSince(); ++i) points.push_back({0, i});
  return points;
}

std::string FaultOf(const Operation& operation, const Action& action, WaitPoint point) {
  Session session(operation.tags);
  operation.prepare(session);
  session.Begin(point, action.act);
  const bool result = operation.run(session);
  // The windows take a cancel back when what it was meant for is over.
  std::string fault = FaultOfTraffic(session, operation, result);
  if (fault.empty()) fault = FaultOfState(session);
  return fault.empty() ? FaultOfNextGet(session) : fault;
}

TEST(Reentry, EveryActionAtEveryWaitOfEveryOperation) {
  std::size_t cases = 0;
  std::size_t good = 0;
  for (const Operation& operation : kOperations) {
    const std::vector<WaitPoint> points = WaitPointsOf(operation);
    EXPECT_GT(points.size(), 1U) << operation.name;
    for (const Action& action : kActions) {
      for (const WaitPoint& point : points) {
        const std::string fault = FaultOf(operation, action, point);
        ++cases;
        good += fault.empty() ? 1U : 0U;
        EXPECT_EQ(fault, "") << action.name << " during " << operation.name << " at "
                             << point.milliseconds << " ms, command " << point.command;
      }
    }
  }
  std::cout << "figure: re-entry, core: " << good << " of " << cases << std::endl;
}

}  // namespace
}  // namespace zek
