#include "faults/FaultSession.h"

#include <array>

namespace zek::faults {
namespace {

// The settings, in seconds.
constexpr double kSendTimeOut = 3;
constexpr double kAfterConnect = 1;
constexpr double kDisconnectDelay = 2;
constexpr double kTagDelay = 1;
constexpr double kPause = 1;  // each of the pauses of a transfer
constexpr double kListing = 5;
// Fixed in the program.
constexpr double kFirstLine = 10;
constexpr double kLinkUpWait = 15;
constexpr double kTagAnswer = 3;

// How long one wait can last over a transport.
struct Longest {
  explicit Longest(const FaultCase& what) {
    if (what.transport != Transport::Tags) return;
    close = kTagDelay;
    connect = 2 * kTagDelay;
    answer = 0;
  }
  double close = kDisconnectDelay;
  double connect = 3 * kSendTimeOut + kAfterConnect + kLinkUpWait;
  double answer = kFirstLine;
};

const std::string kOldCopy = " 77 !OLD!copy\r\n";
const std::string kNewValue = "18";

std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

// Line `index` of a catalogue for a controller of that generation; `day` makes it differ.
std::string Line(const FaultCase& what, int index, const std::string& day) {
  const bool zek1 = what.generation == Generation::Zek1;
  const std::string number = " " + std::to_string(1000 + index) + " !";
  const std::string hour = std::to_string(10 + index) + ":00";
  const std::string date = day + "-DEC-" + (zek1 ? "26" : "2026");
  if (what.catalogue == Catalogue::Sdc) return Padded(number + date, 59) + "!SD1";
  if (what.catalogue == Catalogue::Wdc) {
    return Padded(number + "AHU1        !MO..FR       !" + hour, 59) + "!" + day + "       !17";
  }
  if (zek1) return Padded(number + "AHU1        !" + date + "," + hour, 59) + "!.!.";
  return Padded(" " + std::to_string(1000 + index) + " " + date, 31) + "!" + Padded(hour, 13) +
         "!21    !16";
}

std::vector<std::string> Lines(const FaultCase& what, const std::string& day) {
  std::vector<std::string> lines;
  lines.reserve(kLines);
  for (int index = 0; index < kLines; ++index) lines.push_back(Line(what, index, day));
  return lines;
}

sim::Outstation OutstationOf(const FaultCase& what) {
  sim::PlantCatalogue catalogue{"KATALOG", {}};
  for (int index = 0; index < kLines; ++index) {
    catalogue.lines[1000 + index] = Line(what, index, "24");
  }
  sim::Outstation outstation;
  outstation.generation = what.generation;
  outstation.dus = what.transport == Transport::TcpDus ? 3 : 0;
  outstation.calendar = outstation.weekday = outstation.exceptions = catalogue;
  outstation.controls = {{"AHU1", catalogue, catalogue, "21.5"}};
  return outstation;
}

std::string Ini(const FaultCase& what) {
  constexpr std::array<const char*, 4> addresses = {"HOST:5100", "HOST:5100:3", "", ""};
  std::string ini =
      "[General]\r\nDisconnectTime=60\r\nGetTSCTimeout=5\r\nAlwaysUseDSS=yes\r\nDisconnectDelay="
      "2\r\n"
      "ConnectDelayTime=1\r\nDisconnectDelayTime=1\r\nTagMode=" +
      std::string(what.transport == Transport::Tags ? "YES" : "no") +
      "\r\n[TCPIP]\r\nSendTimeOut=3\r\nDelayAfterConnect=1\r\n[Topics]\r\nX=YES," +
      (what.generation == Generation::Zek1 ? "1," : "2,") +
      addresses.at(static_cast<std::size_t>(what.transport)) + ",Plant,XTAG\r\n[X]\r\nAHU1=Air\r\n";
  for (const char* section : {"[GetDelay]\r\n", "[SaveDelay]\r\n"}) {
    ini += section;
    for (const char key : std::string("ABCDEFGH")) ini += std::string("Delay") + key + "=1\r\n";
  }
  return ini;
}

}  // namespace

FaultSession::FaultSession(const FaultCase& what, std::size_t floodBytes, bool verify)
    : what_(what),
      outstation_(OutstationOf(what)),
      plant_(*this, outstation_, what, floodBytes),
      newLines_(Lines(what, "25")) {
  files.files["/ini/ZEKView.INI"] = Ini(what);
  Load("");
  Select("X/AHU1");
  proc.settings.VerifyAfterWrite = verify;
  localCopy_ = "/zek/" + proc.selection.Id(what.catalogue).localFile;
  files.files[localCopy_] = kOldCopy;
}

void FaultSession::Expect(bool holds, const std::string& what) {
  if (!holds) wrong_ += (wrong_.empty() ? "" : "; ") + what;
}

std::string FaultSession::Run() {
  const std::int64_t start = turn.Now();
  done_ = Transferred();
  const bool done = done_;
  CheckTime(turn.Now() - start);
  if (what_.write) {
    CheckWrite(done);
  } else {
    CheckRead();
  }
  Expect(done || !MustSucceed(), "fails, though a later attempt could succeed");
  CheckAtRest();
  CheckNext();
  if (wrong_.empty()) return {};
  for (const std::string& each : prompts.shown) wrong_ += " {" + each + "}";
  return what_.Name() + ": " + wrong_;
}

bool FaultSession::Transferred() {
  prompts.answers = {true, true, true};
  if (what_.write) return test::Send(proc, what_.catalogue, newLines_, kNewValue);
  read_ = test::Fetch(proc, what_.catalogue);
  return read_.done;
}

const sim::PlantCatalogue& FaultSession::CatalogueThere() const {
  const bool zek1 = what_.generation == Generation::Zek1;
  if (what_.catalogue == Catalogue::Sdc) return outstation_.calendar;
  const sim::TimeControl& control = outstation_.controls.front();
  if (what_.catalogue == Catalogue::Wdc) return zek1 ? outstation_.weekday : control.weekday;
  return zek1 ? outstation_.exceptions : control.exceptions;
}

std::vector<std::string> FaultSession::Listing() const {
  std::vector<std::string> lines;
  lines.reserve(CatalogueThere().lines.size());
  for (const auto& [number, line] : CatalogueThere().lines) lines.push_back(line);
  return lines;
}

std::string FaultSession::ValueThere() const {
  return what_.HasDfv() ? outstation_.controls.front().defaultValue.value_or(".") : ".";
}

// Faults that nothing in the dialogue shows: a line of a listing lost between the server and the
// program, if the transport can lose a part and continue; an extra letter; a command that the
// server accepted and lost.
bool FaultSession::IsUnnoticeable() const {
  if (what_.fault == Fault::Lost) return what_.write;
  if (what_.write) return false;
  const bool inListing = what_.InListing();
  if (what_.fault == Fault::Drop) return inListing && !what_.IsTcp();
  return what_.fault == Fault::Char255 && inListing && what_.transport != Transport::TcpPieces;
}

// A line that the tag server refuses to close stays connected.
bool FaultSession::MayRefuseToClose() const {
  return what_.step.command == kClose && what_.transport == Transport::Tags;
}

bool FaultSession::IsReadBack() const {
  return what_.write && (what_.WritesShared() || proc.settings.VerifyAfterWrite);
}

// A fault that is over at the second attempt and did not prevent the connection. Unconfirmed bytes
// of a write are detected only after all attempts, and lost commands only by the read-back.
bool FaultSession::MustSucceed() const {
  if (what_.write && what_.fault == Fault::Drop && what_.IsTcp()) return false;
  if (IsReadBack() && what_.fault == Fault::Lost && what_.step.command > 1) return false;
  return !what_.always && what_.step.command >= 0 && what_.step.command != kClose;
}

void FaultSession::CheckRead() {
  const std::string& copy = files.files[localCopy_];
  if (!read_.done) {
    Expect(copy == kOldCopy, "the local copy changed");
    return;
  }
  const bool same = read_.lines == Listing() && read_.value == ValueThere();
  unnoticed_ = !same;
  Expect(same || IsUnnoticeable(), "read, but it isn't what the controller has");
  const auto dfv = what_.HasDfv() ? std::optional(read_.value) : std::nullopt;
  Expect(copy == BuildLocalCopy(read_.lines, dfv), "the local copy isn't what was read");
}

void FaultSession::CheckWrite(bool sent) {
  const bool withValue = what_.HasDfv() && what_.catalogue == Catalogue::Wdc;
  const auto dfv = withValue ? std::optional(kNewValue) : std::nullopt;
  Expect(files.files[localCopy_] == BuildLocalCopy(newLines_, dfv), "the local copy isn't whole");
  if (!sent) return;
  const bool there = Listing() == newLines_ && (!what_.HasDfv() || ValueThere() == kNewValue);
  unnoticed_ = !there;
  std::string told = prompts.shown.back();
  told.erase(std::min(told.rfind("\r\n"), told.size()));  // the controller's name
  const bool unchecked = told == "x T430\r\n\r\nT722";
  Expect(there || (IsUnnoticeable() && (!IsReadBack() || unchecked)),
         "sent, but the controller does not have it");
  const std::string done = proc.settings.VerifyAfterWrite ? "i T721"
                           : what_.WritesShared()         ? "i T430\r\n\r\nT896"
                                                          : "i T430";
  const bool lasts = what_.always || MayRefuseToClose();
  Expect(told == done || (unchecked && lasts && IsReadBack()), "sent, but told otherwise");
}

void FaultSession::CheckAtRest() {
  const StatusPanels& status = proc.status;
  Expect(proc.transfer.Kind == TransferKind::Idle, "still in a transfer");
  Expect(status.Transfer.empty() && status.Progress.empty() && status.Waiting.empty(),
         "the status panels show something");
  Expect(status.Busy == 0 && status.Hourglass == 0, "the controls are not back");
  Expect(!test::CancelIsPending(proc) && !proc.connection.Sending, "a flag is left");
  Expect(proc.connection.CurrentTopic == -1 || MayRefuseToClose(), "still connected");
  Expect(dde.State() == LinkState::Closed, "the DDE link is open");
  Expect(socket.State() == LinkState::Closed || socket.closeMilliseconds < 0, "the socket is open");
}

// The longest time that the settings allow: every wait of every attempt lasts until its timeout.
double FaultSession::LongestSeconds() const {
  if (!what_.write) return LongestFetch();
  const Longest longest(what_);
  const int commands = what_.LastCommand() + 1;
  const double pauses = (4 + kLines + 1 + 2) * kPause;
  const double attempt = longest.close + longest.connect + commands * longest.answer + pauses;
  const int fetches = (what_.WritesShared() ? 1 : 0) + (IsReadBack() ? 1 : 0);
  return 3 * attempt + 2 * kPause + kSendTimeOut + longest.close + fetches * LongestFetch();
}

double FaultSession::LongestFetch() const {
  const Longest longest(what_);
  const double tagAnswer = what_.transport == Transport::Tags ? kTagAnswer : 0;
  const double listing = (kLines + 2) * kListing + tagAnswer;
  return 3 * (longest.close + longest.connect + 2 * longest.answer + 2 * kPause + listing) +
         longest.close + kPause;
}

void FaultSession::CheckTime(std::int64_t milliseconds) {
  const double seconds = static_cast<double>(milliseconds) / 1000;
  Expect(seconds <= LongestSeconds(),
         "took " + std::to_string(seconds) + " s of " + std::to_string(LongestSeconds()));
}

void FaultSession::CheckNext() {
  plant_.Repair();
  const test::Fetched next = test::Fetch(proc, what_.catalogue);
  Expect(next.done && next.lines == Listing() && next.value == ValueThere(),
         "the next read does not work");
}

}  // namespace zek::faults
