#include "faults/FaultyPlant.h"

#include <map>

namespace zek::faults {
namespace {

const std::string kGreeting = "<TRANSPARENT>";
const std::string kErrorLine = "ERROR 17\r\n";
constexpr std::size_t kPiece = 50;
constexpr std::size_t kFloodPiece = 60'000;
constexpr int kFetchIsOver = 900;     // after the list command, in the pause after disconnecting
constexpr int kLater = 300;           // milliseconds: after the next command, in its pause
constexpr int kBeforeClosing = 2500;  // after the last command of a write, in the last pause

std::string AllBytes() {
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
  return bytes;
}

bool IsCharacter(Fault fault) { return fault >= Fault::Char0; }

// The place in `text` where its line `index` begins.
std::size_t LineStart(const std::string& text, int index) {
  if (index == kExitLine) return text.rfind("EXIT");
  if (index == kDfvLine) return text.find(".DFV");
  std::size_t at = 0;
  for (int line = 0; line < index; ++line) at = text.find('\n', at) + 1;
  return at;
}

std::string WithStrays(const std::string& text) {
  const std::size_t middle = text.size() / 2;
  return "\x02" + text.substr(0, middle) + std::string(1, '\0') + text.substr(middle) + "\x03";
}

}  // namespace

FaultyPlant::FaultyPlant(test::TestSession& world, sim::Outstation& outstation,
                         const FaultCase& what, std::size_t floodBytes)
    : world_(world),
      outstation_(outstation),
      what_(what),
      floodBytes_(floodBytes),
      active_(!what.WritesShared()) {
  Prepare();
  for (test::MemoryTransport* link : {&world_.socket, &world_.dde}) {
    link->onConnected = [this] { OnConnected(); };
    link->onSent = [this](std::string_view bytes) { TakeLink(bytes); };
  }
  world_.tags.takes = [this](const std::string& tag, const std::string& value) {
    return TakeTag(tag, value);
  };
}

test::MemoryTransport& FaultyPlant::Link() const {
  return what_.IsTcp() ? world_.socket : world_.dde;
}

// The write comes next.
void FaultyPlant::Arm() {
  active_ = armed_ = true;
  connection_ = 0;
  Prepare();
}

// The state before the first step with a fault.
void FaultyPlant::Prepare() {
  const bool dead = what_.fault == Fault::Drop || what_.fault == Fault::Stall;
  if (IsAt(kConnect)) {
    Link().silent = dead;
    Link().reachable = what_.fault != Fault::Reset;
    world_.tags.opens = !dead && what_.fault != Fault::Reset;
    if (what_.fault == Fault::Late) Link().openMilliseconds = 2500;
  }
  if (IsAt(kClose) && what_.IsTcp()) {
    if (dead) Link().closeMilliseconds = -1;
    if (what_.fault == Fault::Late) Link().closeMilliseconds = 1500;
  }
}

void FaultyPlant::Repair() {
  active_ = false;
  Link().silent = false;
  Link().reachable = true;
  Link().openMilliseconds = 20;
  Link().closeMilliseconds = 0;
  world_.tags.opens = true;
}

void FaultyPlant::OnConnected() {
  if (connection_++ > 0 && !what_.always) Repair();
  session_.emplace(outstation_);
  poked_.clear();
  held_.clear();
  command_ = 0;
  hole_ = false;
  dead_ = false;
  Link().acknowledges = true;
  if (IsAt(kConnect)) Disturb(5);
  if (what_.transport != Transport::TcpDus) Greet();
}

// The greeting, or its fault; with a DUS number, after the number was sent.
void FaultyPlant::Greet() {
  const std::string greeting = what_.transport == Transport::Dde ? "0000>" + kGreeting : kGreeting;
  if (what_.transport == Transport::Tags || !IsAt(kLinkUp)) {
    if (what_.transport != Transport::Tags) Link().Say(greeting, 10);
    if (IsAt(kLinkUp)) Disturb(10);
    return;
  }
  const Fault fault = what_.fault;
  if (fault == Fault::Drop && what_.IsTcp()) LoseTheRest();
  if (fault == Fault::Drop || fault == Fault::Stall || fault == Fault::Lost) return;
  if (fault == Fault::Late) {
    Link().Say(greeting, 10'000);
  } else if (fault == Fault::HalfLine) {
    Link().Say(greeting.substr(0, greeting.size() / 2), 10);
  } else if (fault == Fault::Error) {
    Say(kErrorLine, 10);
  } else if (IsCharacter(fault)) {
    Link().Say(std::string(greeting).insert(greeting.size() / 2, Noise()), 10);
  } else {
    Disturb(10);
    if (fault != Fault::Reset) Link().Say(greeting, 20);
  }
}

// From now on nothing gets through and nothing is confirmed.
void FaultyPlant::LoseTheRest() {
  hole_ = true;
  Link().acknowledges = false;
}

void FaultyPlant::TakeLink(std::string_view bytes) {
  std::string text(bytes);
  if (what_.transport == Transport::Dde) {
    if (text == "{13}") {
      Link().takesThis = TakeCommand(std::exchange(poked_, {}));
    } else if (static_cast<unsigned char>(text.back()) < 32) {
      Link().takesThis = TakeCommand(text);
    } else if (Is(command_, Fault::Drop)) {
      Link().takesThis = false;
    } else {
      poked_ = text;
    }
    return;
  }
  if (text.starts_with("DUS:")) {
    Greet();
    return;
  }
  if (text.ends_with('\r')) text.pop_back();
  Link().takesThis = TakeCommand(text);
}

bool FaultyPlant::TakeTag(const std::string& tag, const std::string& value) {
  if (tag != "X") return true;
  const bool refused =
      what_.fault == Fault::Drop || what_.fault == Fault::Stall || what_.fault == Fault::Reset;
  if (value == "transparent open") {
    OnConnected();
    return !(IsAt(kLinkUp) && (refused || what_.fault == Fault::Error));
  }
  if (value == "transparent close") {
    world_.tags.replies.clear();
    return !(IsAt(kClose) && refused && command_ > 0);
  }
  return TakeCommand(value.ends_with('\r') ? value.substr(0, value.size() - 1) : value);
}

// False if the command is refused at once.
bool FaultyPlant::TakeCommand(const std::string& command) {
  if (dead_) {
    world_.tags.fault = "TagWrite: gone";
    return false;
  }
  if (hole_) return true;
  if (!armed_ && command.starts_with("LIST ")) world_.turn.After(kFetchIsOver, [this] { Arm(); });
  const int number = command_++;
  if (Is(number, Fault::Drop) && !what_.InListing()) {
    if (what_.IsTcp()) LoseTheRest();
    return what_.IsTcp();
  }
  if (Is(number, Fault::Lost)) return true;
  const bool holds = Is(number + 1, Fault::Late) && !what_.InListing();
  if (holds && what_.write) {
    held_ = kErrorLine;
  } else if (holds) {
    held_ = Answer(command);
  } else if (IsAt(number)) {
    AnswerWithFault(command);
  } else {
    Say(Answer(command));
  }
  if (IsAt(kClose) && number == what_.LastCommand()) BeforeClose();
  return true;
}

std::string FaultyPlant::Answer(const std::string& command) {
  const sim::PlantReply reply = session_->Answer(command);
  std::string text;
  for (const std::string& line : reply.lines) text += line + "\r\n";
  if (reply.refused) text += what_.transport == Transport::TcpDus ? kErrorLine : "\x02\r\n";
  return text;
}

bool FaultyPlant::IsRefusal() const {
  if (what_.InListing()) return false;
  // With a DUS number character 2 is one of the strays that are left out.
  return what_.fault == Fault::Error ||
         (what_.fault == Fault::Stx && what_.transport != Transport::TcpDus);
}

void FaultyPlant::AnswerWithFault(const std::string& command) {
  if (IsRefusal()) {
    Say(what_.fault == Fault::Error ? kErrorLine : "\x02\r\n");
    return;
  }
  const std::string answer = Answer(command);
  const std::size_t at = LineStart(answer, what_.step.line);
  Garble(answer.substr(0, at), answer.substr(at));
}

void FaultyPlant::Garble(const std::string& before, const std::string& rest) {
  const std::size_t lineEnd = rest.find('\n') + 1;
  const std::size_t middle = lineEnd / 2;
  if (IsCharacter(what_.fault)) {
    Say(before + rest.substr(0, middle) + Noise() + rest.substr(middle));
    return;
  }
  if (what_.fault == Fault::Late && !what_.InListing()) {
    Say(command_ == 1 ? kGreeting : std::exchange(held_, {}), kLater);
    Say(rest, kLater + 20);
    return;
  }
  switch (what_.fault) {
    case Fault::Drop:  // of a listing
      if (what_.IsTcp()) LoseTheRest();
      Say(hole_ ? before : before + rest.substr(lineEnd));
      break;
    case Fault::HalfLine:
      Say(before + rest.substr(0, middle));
      break;
    case Fault::Garbage:
    case Fault::Error:
    case Fault::Stx:
      Say(before + Noise() + rest);
      break;
    default:
      Say(before);
      if (what_.fault == Fault::Reset) Reset(60);
      if (what_.fault == Fault::Late) Say(rest, 4000);
      if (what_.fault == Fault::Flood) {
        SayFlood(60);
        Say(rest, 70);
      }
  }
}

// The fault after the last answer and before the session closes the link.
void FaultyPlant::BeforeClose() {
  const int when = what_.write ? kBeforeClosing : 51;
  if (what_.fault == Fault::Late) {
    Say(what_.write ? kErrorLine : "EXIT\r\n", when);
  } else if (what_.fault != Fault::Drop && what_.fault != Fault::Stall) {
    Disturb(when);
  }
}

// The fault where no answer is owed.
void FaultyPlant::Disturb(int milliseconds) {
  const Fault fault = what_.fault;
  if (fault == Fault::Reset) {
    Reset(milliseconds);
  } else if (fault == Fault::Flood) {
    SayFlood(milliseconds);
  } else if (fault == Fault::HalfLine) {
    Say("    9 !HAL", milliseconds);
  } else if (!Noise().empty()) {
    Say(Noise(), milliseconds);
  }
}

// The text in addition to the expected answer, or instead of it.
std::string FaultyPlant::Noise() const {
  static const std::map<Fault, std::string> noises = {
      {Fault::Garbage, AllBytes()}, {Fault::Error, kErrorLine}, {Fault::Stx, "\x02"},
      {Fault::Char0, {"\0", 1}},    {Fault::Char2, "\x02"},     {Fault::Char3, "\x03"},
      {Fault::Char23, "\x17"},      {Fault::Char255, "\xFF"}};
  const auto noise = noises.find(what_.fault);
  return noise == noises.end() ? std::string() : noise->second;
}

// Sends a text as the transport delivers it.
void FaultyPlant::Say(const std::string& text, int milliseconds) {
  if (text.empty()) return;
  if (what_.transport == Transport::TcpDus) {
    Update(WithStrays(text), milliseconds);
  } else if (what_.transport == Transport::Tags) {
    Update("0000>" + text, milliseconds);
  } else {
    std::string all;
    for (std::size_t at = 0; at < text.size(); at += kPiece) {
      const std::string piece = "0001>" + text.substr(at, kPiece);
      if (what_.transport == Transport::Dde) Update(piece, milliseconds);
      all += piece + '\xFF';
    }
    if (what_.IsTcp()) Update(all, milliseconds);
  }
}

void FaultyPlant::SayFlood(int milliseconds) {
  // A tag is read five times a second; each read returns all text so far.
  const std::size_t size = what_.transport == Transport::Tags ? floodBytes_ : kFloodPiece;
  const std::string piece = (what_.IsTcp() ? "" : "0001>") + std::string(size, 'x');
  for (std::size_t said = 0; said < floodBytes_; said += size) Update(piece, milliseconds);
}

void FaultyPlant::Update(const std::string& bytes, int milliseconds) {
  if (what_.transport != Transport::Tags) {
    Link().Say(bytes, milliseconds);
    return;
  }
  world_.turn.After(milliseconds, [this, bytes, connection = connection_] {
    if (connection == connection_) world_.tags.replies.push_back(bytes);
  });
}

void FaultyPlant::Reset(int milliseconds) {
  if (what_.transport == Transport::Tags) {
    dead_ = true;
  } else {
    Link().Break(milliseconds);
  }
}

}  // namespace zek::faults
