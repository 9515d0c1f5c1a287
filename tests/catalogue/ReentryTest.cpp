#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>

#include "export/BatchExport.h"
#include "support/TransferSession.h"

// Waits run events, so any user action can happen inside any wait. Each operation runs once to find
// its wait points, then again for every point and every action.
namespace zek {
namespace {

using Shown = std::vector<std::string>;
constexpr std::int16_t kOne = 0;
constexpr std::int16_t kTwo = 1;
constexpr std::int16_t kTagged = 3;
constexpr std::size_t kAttempts = 3;
constexpr std::size_t kTransfers = 4;                   // of a save: a fetch, the write, two checks
constexpr std::int64_t kLongestRun = 20LL * 60 * 1000;  // of an operation and the actions inside it

const Shown kRead = {"\x05", "LIST "};
const std::string kMonday =
    " 1000 !AHU1        !MO           !07:00..16:30             !21       !17";
const std::string kTuesday =
    " 1001 !AHU1        !TU           !07:00..16:30             !21       !17";
const Shown kWriteOne = {"EXIT", "EXIT", ".WDC", kMonday, kTuesday, "EXIT"};
const Shown kWriteTwo = {"EXIT", "EXIT", "TSC1.WDC", kMonday, kTuesday, "TSC1.DFV=.", "EXIT"};

// When an action happens: at a time, or while a command is being handed over.
struct WaitPoint {
  std::int64_t milliseconds = 0;  // since the operation began
  std::size_t command = 0;        // counted from 1; 0: by time
};

/// A session that records what the controller receives on each connection. The controller keeps the
/// weekday lines that it receives. Each of its steps takes time.
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
      Received();
    };
    tags.takes = [this](const std::string& tag, const std::string& value) {
      if (tag != "NETTAG") TakeTag(value);
      return true;
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

  // Runs `action` at `point` from now on.
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

  // The state that distinguishes one wait from another.
  std::string Waiting() const {
    const auto runs = [](std::int16_t countdown) { return countdown > 0 ? "1" : "0"; };
    return proc.status.Waiting + "/" + std::to_string(proc.status.Hourglass + proc.status.Busy) +
           runs(proc.countdowns.WaitCountdown) + runs(proc.countdowns.DelayCountdown) +
           runs(proc.countdowns.ReplyCountdown) + "/" +
           std::to_string(static_cast<int>(proc.transfer.Kind)) + "/" +
           std::to_string(proc.connection.CurrentTopic) + proc.connection.PendingTopic + "/" +
           std::to_string(static_cast<int>(socket.State())) + "/" +
           std::to_string(commands.size()) + "/" + std::to_string(tags.calls.size());
  }

  inline static const std::string kLine =
      " 1000 !AHU1        !MO..FR       !07:00..16:30             !21       !17";
  std::vector<Shown> connections;
  std::unique_ptr<BatchExport> batch;

 private:
  void TakeTag(std::string value) {
    if (value == "transparent open") connections.emplace_back();
    if (value.ends_with('\r')) value.pop_back();
    if (value.empty() || value.starts_with("transparent ") || connections.empty()) return;
    commands.push_back(value);
    const auto answer = answers.find(value);
    if (answer != answers.end()) {
      turn.After(50, [this, text = answer->second] { tags.replies.push_back("0000>" + text); });
    }
    Received();
  }

  // The last of `commands` came.
  void Received() {
    const std::string& command = commands.back();
    connections.back().push_back(command);
    if (command.ends_with(".WDC")) kept_.clear();
    if (command.starts_with(" ")) {
      kept_ += command + "\r\n";
      answers["LIST WDC"] = answers["LIST TSC1"] = kept_ + "EXIT\r\n";
    }
    if (begun_ && commands.size() - commandsBefore_ == point_.command) Act();
  }

  void Act() {
    turn.After(0, [this] { action_(*this); });
  }

  std::string kept_;
  WaitPoint point_;
  std::function<void(Session&)> action_;
  bool begun_ = false;
  std::int64_t start_ = 0;
  std::size_t commandsBefore_ = 0;
};

struct Operation {
  const char* name;
  bool tags;
  const char* prepare;
  const char* run;
  Shown sent;  // what one connection must have received when `run` returns true
};

bool Connected(Session& session, std::int16_t topic) {
  session.proc.connection.Connect(topic);
  return session.proc.connection.CurrentTopic == topic;
}

bool Export(Session& session) {
  session.batch->Start();
  while (session.batch->IsRunning()) session.batch->Tick();
  return false;
}

// Does what an operation or a user does; returns its result.
bool Do(Session& session, std::string_view what) {
  if (what == "connect") return Connected(session, kOne);
  if (what == "connect another") return Connected(session, kTwo);
  if (what == "connect a tag") return Connected(session, kTagged);
  if (what == "disconnect") return session.proc.connection.Disconnect();
  if (what == "TIME" || what == "X") return session.proc.connection.SendCommand(std::string(what));
  if (what == "get") return session.Get();
  if (what == "save") return session.Save({kMonday, kTuesday});
  if (what == "erase") return session.Erase();
  if (what == "export") return Export(session);
  if (what == "batch tick") return session.batch->Tick();
  if (what == "select another") session.SelectTwo();
  if (what == "verify") session.proc.settings.VerifyAfterWrite = true;
  if (what == "verify another") {
    Do(session, "verify");
    session.SelectTwo();
  }
  if (what == "slow" || what == "slow, connected") {
    if (what != "slow") Do(session, "connect a tag");
    session.tagServer.blocks = [](const std::string& call) { return call == "?" ? 300 : 5000; };
  }
  if (what == "no answer") session.answers.erase("LIST WDC");
  if (what == "quit") session.turn.Quit();
  if (what == "a box") {  // it runs the event loop inside the wait
    const auto end = session.turn.Now() + 20'000;
    while (session.turn.Now() < end) session.turn.Once();
  }
  if (what == "cancel") {
    session.batch->Cancel();
    if (session.proc.status.Busy > 0) session.proc.waits.Cancel();
  }
  return true;
}

const std::vector<Operation> kOperations = {
    {"connect", false, "", "connect", {}},
    {"connect with DUS", false, "", "connect another", {}},
    {"connect another", false, "connect another", "connect", {}},
    {"disconnect", false, "connect", "disconnect", {}},
    {"command", false, "connect", "TIME", {}},
    {"command without answer", false, "connect another", "X", {}},
    {"tag connect", true, "", "connect a tag", {}},
    {"tag disconnect", true, "connect a tag", "disconnect", {}},
    {"get", false, "", "get", kRead},
    {"get of a named control", false, "select another", "get", kRead},
    {"get in vain", false, "no answer", "get", kRead},
    {"save", false, "", "save", kWriteOne},
    {"save of a named control", false, "select another", "save", kWriteTwo},
    {"verified save", false, "verify", "save", kWriteOne},
    {"verified save of a named control", false, "verify another", "save", kWriteTwo},
    {"tag get", true, "", "get", kRead},
    {"tag save", true, "", "save", kWriteOne},
    {"verified tag save", true, "verify", "save", kWriteOne},
    {"connect of a slow tag", true, "slow", "connect a tag", {}},
    {"disconnect of a slow tag", true, "slow, connected", "disconnect", {}},
    {"command to a slow tag", true, "slow, connected", "TIME", {}},
    {"slow tag get", true, "slow", "get", kRead},
    {"slow tag save", true, "slow", "save", kWriteOne},
    {"batch export", false, "", "export", {}},
};

// Typed commands and other topics are available only while no catalogue is transferred.
constexpr std::array kActions = {"disconnect", "connect", "connect another", "cancel", "quit",
                                 "get",        "erase",   "batch tick",      "TIME",   "a box"};

void Act(Session& session, std::string_view action) {
  if (action != "TIME" || session.proc.status.Busy == 0) Do(session, action);
}

bool IsTyped(const std::string& command) { return command == "TIME" || command == "X"; }

// Whether the catalogue commands that a connection received are the beginning of one transfer.
Shown TransferOf(Shown connection) {
  std::erase_if(connection, [](const std::string& each) { return IsTyped(each); });
  if (!connection.empty() && connection.front() == "DUS:3") connection.erase(connection.begin());
  for (std::string& each : connection)
    if (each.starts_with("LIST ")) each = "LIST ";
  return connection;
}
bool BeginsOneTransfer(Shown got) {
  // A write that ends early ends with "EXIT" too.
  if (got.size() > 3 && got.back() == "EXIT") got.pop_back();
  const std::array wholes{kRead, Shown{"LIST "}, kWriteOne, kWriteTwo};
  return std::any_of(wholes.begin(), wholes.end(), [&got](const Shown& whole) {
    return got.size() <= whole.size() && std::equal(got.begin(), got.end(), whole.begin());
  });
}

// "" or the error in what the controller received.
std::string FaultOfTraffic(const Session& session, const Operation& operation, bool result) {
  std::size_t whole = 0;
  for (const Shown& connection : session.connections) {
    const Shown got = TransferOf(connection);
    if (!BeginsOneTransfer(got)) return "transfers are mixed";
    whole += !operation.sent.empty() && got == operation.sent ? 1U : 0U;
  }
  if (operation.sent.empty()) return {};
  if (result && whole == 0) return "told as done, and was not";
  const std::size_t transfers = operation.sent == kRead ? 1 : kTransfers;
  if (whole > kAttempts || session.connections.size() > kAttempts * transfers + 2)
    return "done too often";
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
  if (session.socket.openedTwice) return "opened before it was closed";
  const auto& calls = session.tags.calls;
  const auto count = [&calls](const char* call) {
    return std::count(calls.begin(), calls.end(), call);
  };
  if (count("NET=transparent close") > count("NET=transparent open")) return "closed twice";
  const bool open = session.socket.State() == LinkState::Connected;
  if (!proc.settings.TagMode && open != (connection.CurrentTopic >= 0))
    return "link and topic differ";
  return {};
}

std::string FaultOfNextGet(Session& session) {
  ZV_Proc& proc = session.proc;
  if (session.turn.Quitting()) return {};
  if (proc.settings.TagMode && !Connected(session, kTagged)) return "no connection afterwards";
  session.SelectOne();
  session.answers["LIST WDC"] = Session::kLine + "\r\nEXIT\r\n";
  session.prompts.answers.clear();
  const bool got = session.Get();
  const bool whole = session.GotLines() == Shown{Session::kLine};
  return got && whole ? "" : "no catalogue afterwards";
}

// Runs the operation without an action and finds its wait points.
std::vector<WaitPoint> WaitPointsOf(const Operation& operation) {
  Session session(operation.tags);
  Do(session, operation.prepare);
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
  session.Begin({}, [](Session&) {});
  session.turn.After(0, look);
  const bool done = Do(session, operation.run);
  const bool inVain = std::string_view(operation.prepare) == "no answer";
  EXPECT_TRUE(done || operation.sent.empty() || inVain) << operation.name;
  over = true;
  std::erase_if(points,
                [&](const WaitPoint& each) { return each.milliseconds > session.Lasted(); });
  for (std::size_t i = 1; i <= session.CommandsSince(); ++i) points.push_back({0, i});
  return points;
}

std::string FaultOf(const Operation& operation, const char* action, WaitPoint point) {
  Session session(operation.tags);
  Do(session, operation.prepare);
  session.Begin(point, [action](Session& inside) { Act(inside, action); });
  const bool result = Do(session, operation.run);
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
    for (const char* const action : kActions) {
      for (const WaitPoint& point : points) {
        const std::string fault = FaultOf(operation, action, point);
        ++cases;
        good += fault.empty() ? 1U : 0U;
        EXPECT_EQ(fault, "") << action << " during " << operation.name << " at "
                             << point.milliseconds << " ms, command " << point.command;
      }
    }
  }
  std::cout << "figure: re-entry, core: " << good << " of " << cases << std::endl;
}

}  // namespace
}  // namespace zek
