// zekview-peer-cost [MEGABYTES]: measures the memory of a session whose peer sends so many
// megabytes without ever ending a line, a piece or its fillers. Without an argument it sends 1024
// and also compares the time with that of a quarter of them.

#include <ctime>
#include <iostream>
#include <sys/resource.h>

#include "support/TestSession.h"

namespace zek {
namespace {

constexpr std::size_t kMegabyte = 1U << 20U;
constexpr std::size_t kMostMemory = 8 * kMegabyte;
constexpr double kMostGrowth = 5;  // in time, for four times as many bytes

struct Peer {
  const char* name;
  const char* topic;  // ONE: in pieces, TWO: plain, LOC: over DDE
  std::string block;  // sent again and again
};

std::string Repeated(const std::string& text, std::size_t bytes) {
  std::string block;
  while (block.size() < bytes) block += text;
  return block;
}

std::vector<Peer> Peers() {
  constexpr std::size_t kBlock = 65536;
  return {
      {"no line end, in pieces", "ONE", Repeated("0001>" + std::string(200, 'x') + "\xFF", kBlock)},
      {"no line end, plain", "TWO", Repeated("x", kBlock)},
      {"no line end, DDE", "LOC", "0001>" + Repeated("x", kBlock)},
      {"no character 255", "ONE", Repeated(" 1000 !x\r\n", kBlock)},
      {"no character 255, byte by byte", "ONE", "x"},
      {"characters 23, in pieces", "ONE",
       Repeated("0001>" + std::string(200, '\x17') + "\xFF", kBlock)},
      {"characters 23, no 255", "ONE", Repeated("\x17", kBlock)},
      {"characters 23, plain", "TWO", Repeated("\x17", kBlock)},
      {"characters 23, byte by byte", "TWO", "\x17"},
      {"link up after link up, plain", "TWO", Repeated("<TRANSPARENT>", kBlock)},
      {"line ends alone, plain", "TWO", Repeated("\n", kBlock)},
      {"numbered lines, plain", "TWO", Repeated(" 1000 !x\r\n", kBlock)},
  };
}

std::size_t PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

// Returns the processor seconds for `bytes` from the peer during a fetch.
double Hear(const Peer& peer, std::size_t bytes) {
  test::TestSession session;
  session.socket.onConnected = [&session] { session.socket.Say("<TRANSPARENT>"); };
  session.dde.onConnected = [&session] { session.dde.Say("0000><TRANSPARENT>"); };
  session.proc.connection.Connect(session.proc.topics.Find(peer.topic));
  session.proc.transfer.Collect(TransferKind::ReadWdc);
  test::MemoryTransport& link =
      std::string_view(peer.topic) == "LOC" ? session.dde : session.socket;
  // Byte by byte, a hundredth is enough: the cost depends on the amount in the buffers.
  const std::size_t said = peer.block.size() == 1 ? bytes / 100 : bytes;
  const std::clock_t start = std::clock();
  for (std::size_t heard = 0; heard < said; heard += peer.block.size()) link.SayNow(peer.block);
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

int Measure(std::size_t bytes, bool timeToo) {
  const std::vector<Peer> peers = Peers();
  std::size_t small = 0;
  std::size_t linear = 0;
  Hear(peers.front(), 0);  // the memory that any session needs
  const std::size_t before = PeakMemory();
  for (const Peer& peer : peers) {
    const double quarter = timeToo ? Hear(peer, bytes / 4) : 0;
    const double whole = Hear(peer, bytes);
    const std::size_t grown = PeakMemory() - before;
    if (grown <= kMostMemory) ++small;
    if (whole <= quarter * kMostGrowth) ++linear;
    std::cout << peer.name << ": " << grown / 1024 << " KB, " << whole << " s\n";
  }
  std::cout << "figure: endless peers that cost at most 8 MB: " << small << " of " << peers.size()
            << "\n";
  if (!timeToo) return small == peers.size() ? 0 : 1;
  std::cout << "figure: endless peers that cost linear time: " << linear << " of " << peers.size()
            << "\n";
  return small == peers.size() && linear == peers.size() ? 0 : 1;
}

}  // namespace
}  // namespace zek

int main(int count, char** arguments) {
  const bool given = count > 1;
  const std::size_t megabytes = given ? std::stoul(arguments[1]) : 1024;
  return zek::Measure(megabytes * zek::kMegabyte, !given);
}
