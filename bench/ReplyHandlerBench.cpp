#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "Limits.h"
#include "support/TestSession.h"

namespace zek::bench {
namespace {

constexpr std::size_t kMegabyte = 1'000'000;
constexpr std::size_t kShort = 5 * kMegabyte;
constexpr std::size_t kLong = 20 * kMegabyte;
constexpr std::size_t kSocketRead = std::size_t{64}
                                    << 10;  // bytes that the socket link reads at once

enum class Framing { Plain, Pieces };  // an address with and without a DUS number

// `unit` repeated to `length` characters.
std::string Repeated(std::string_view unit, std::size_t length) {
  std::string text;
  text.reserve(length + unit.size());
  while (text.size() < length) text += unit;
  text.resize(length);
  return text;
}

constexpr std::string_view kLine =
    "  1000 !TSC1        !MO..FR       !07:00..16:30             \r\n";
static_assert(kLine.size() == 60 + 2);
constexpr std::size_t kLinesOfPiece = 4;

// A session whose link delivers the text given to it.
class FloodedSession {
 public:
  explicit FloodedSession(Framing framing) {
    session_.socket.onConnected = [this] { session_.socket.Say("<TRANSPARENT>"); };
    session_.proc.connection.Connect(framing == Framing::Pieces ? 0 : 1);
  }

  bool Connected() const { return session_.proc.connection.IsLinkUp(); }

  void Feed(std::string_view stream, std::size_t readSize) {
    for (; !stream.empty(); stream.remove_prefix(std::min(readSize, stream.size()))) {
      session_.socket.SayNow(stream.substr(0, readSize));
    }
    benchmark::DoNotOptimize(session_.proc.log.Lines().size());
  }

 private:
  test::TestSession session_;
};

void AddFlood(const std::string& name, Framing framing, const std::string& unit, std::size_t length,
              std::size_t readSize = kSocketRead) {
  AddBenchmark(name, static_cast<double>(length), [=](benchmark::State& state) {
    const std::string stream = Repeated(unit, length);
    FloodedSession session(framing);
    if (!session.Connected()) state.SkipWithError("no connection");
    for (auto _ : state) session.Feed(stream, readSize);
  });
}

// The minimal work of a log: find the line ends and keep the last 250 lines.
void AddMemchrSplit(const std::string& name, const std::string& unit) {
  AddBenchmark(name, static_cast<double>(kLong), [=](benchmark::State& state) {
    const std::string stream = Repeated(unit, kLong);
    std::array<std::string, ReplyLog::kLines> ring;
    for (auto _ : state) {
      std::size_t count = 0;
      const char* at = stream.data();
      const char* const end = at + stream.size();
      while (const void* found = std::memchr(at, '\n', static_cast<std::size_t>(end - at))) {
        const char* const lineEnd = static_cast<const char*>(found);
        ring[count++ % ring.size()].assign(at, lineEnd);
        at = lineEnd + 1;
      }
      benchmark::DoNotOptimize(ring.data());
      benchmark::ClobberMemory();
    }
  });
}

void AddBesideSplit(std::vector<Limit>& limits, const std::string& framingName, Framing framing,
                    const std::string& unit) {
  constexpr double mostOfSplit = 3;
  const std::string reply = "reply handler/" + framingName;
  const std::string split = "memchr split/" + framingName;
  AddFlood(reply, framing, unit, kLong);
  AddMemchrSplit(split, unit);
  limits.push_back(
      {"reply handler, " + framingName + " / memchr split", reply, split, mostOfSplit});
}

struct Hostile {
  std::string_view name;
  std::string_view unit;
  std::size_t readSize = kSocketRead;
};

constexpr std::array<Hostile, 6> kHostile = {{{"no line ends", "x"},
                                              {"characters 23", "\x17"},
                                              {"line feeds", "\n"},
                                              {"characters 255", "\xFF"},
                                              {"one-character pieces", "0001>x\xFF"},
                                              {"single bytes", kLine, 1}}};

void AddLinear(std::vector<Limit>& limits, const std::string& framingName, Framing framing) {
  constexpr double mostGrowth = 2;
  for (const Hostile& hostile : kHostile) {
    const std::string name = std::string(hostile.name) + "/" + framingName;
    AddFlood(name + "/5 MB", framing, std::string(hostile.unit), kShort, hostile.readSize);
    AddFlood(name + "/20 MB", framing, std::string(hostile.unit), kLong, hostile.readSize);
    limits.push_back({std::string(hostile.name) + ", " + framingName + ", a byte of 20 / of 5 MB",
                      name + "/20 MB", name + "/5 MB", mostGrowth});
  }
}

}  // namespace

void AddReplyHandler(std::vector<Limit>& limits) {
  AddBesideSplit(limits, "plain", Framing::Plain, std::string(kLine));
  AddBesideSplit(limits, "pieces", Framing::Pieces,
                 "0001>" + Repeated(kLine, kLinesOfPiece * kLine.size()) + "\xFF");
  AddLinear(limits, "plain", Framing::Plain);
  AddLinear(limits, "pieces", Framing::Pieces);
}

}  // namespace zek::bench
