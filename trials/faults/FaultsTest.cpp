#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>

#include "faults/FaultSession.h"

namespace zek::faults {
namespace {

// ZEKVIEW_FLOOD: the bytes of a flood; more than any buffer of the program in any case.
std::size_t FloodBytes() {
  constexpr std::size_t kBeyondBuffers = 200'000;
  const char* const bytes = std::getenv("ZEKVIEW_FLOOD");
  return bytes == nullptr ? kBeyondBuffers : std::strtoul(bytes, nullptr, 10);
}

// The sanitizers see every kind of case in a seventh of them: 7 shares no factor with the number of
// transports and of faults.
#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kStride = 7;
#else
constexpr std::size_t kStride = 1;
#endif

void RunAll(const char* what, const char* unnoticedWhat, const std::vector<FaultCase>& cases) {
  const std::size_t flood = FloodBytes();
  std::size_t held = 0;
  std::size_t unnoticed = 0;
  std::size_t run = 0;
  for (std::size_t at = 0; at < cases.size(); at += kStride) {
    ++run;
    FaultSession session(cases[at], flood);
    const std::string wrong = session.Run();
    EXPECT_EQ(wrong, "");
    if (wrong.empty()) ++held;
    if (session.Unnoticed()) ++unnoticed;
  }
  std::cout << "figure: " << what << ": " << held << " of " << run << " (" << unnoticed
            << " of them " << unnoticedWhat << ")\n";
}

TEST(Faults, AtEveryStepOfARead) {
  RunAll("faults in reads", "look like a whole listing", ReadCases());
}

TEST(Faults, AtEveryStepOfAWrite) {
  RunAll("faults in writes", "only a read-back can tell", WriteCases());
}

// What the server takes and loses, the read-back finds; what it does not lose there, it confirms.
TEST(Faults, InAWriteThatIsVerified) {
  std::size_t right = 0;
  std::size_t run = 0;
  std::size_t sent = 0;
  for (const FaultCase& each : WriteCases()) {
    if (each.fault != Fault::Lost) continue;
    ++run;
    FaultSession session(each, FloodBytes(), true);
    const std::string wrong = session.Run();
    EXPECT_EQ(wrong, "");
    if (wrong.empty()) ++right;
    if (session.ToldDone()) ++sent;
  }
  EXPECT_GT(sent, 0U);
  std::cout << "figure: lost commands in writes that are verified: " << right << " of " << run
            << " (" << sent << " of them lost nothing that counts)\n";
}

}  // namespace
}  // namespace zek::faults
