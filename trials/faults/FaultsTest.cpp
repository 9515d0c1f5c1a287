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

// With the sanitizers every seventh case runs. That covers every kind of case, because 7 shares no
// factor with the number of transports and of faults.
#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kStride = 7;
#else
constexpr std::size_t kStride = 1;
#endif

// The number of cases, of those without an error, and of those in which the fault did not show.
struct Count {
  std::size_t run = 0;
  std::size_t right = 0;
  std::size_t unnoticed = 0;
  std::size_t done = 0;  // reported as done
};

Count RunAll(const std::vector<FaultCase>& cases, std::size_t stride, bool verify = false) {
  Count count;
  for (std::size_t at = 0; at < cases.size(); at += stride) {
    FaultSession session(cases[at], FloodBytes(), verify);
    const std::string wrong = session.Run();
    EXPECT_EQ(wrong, "");
    ++count.run;
    count.right += wrong.empty() ? 1U : 0U;
    count.unnoticed += session.Unnoticed() ? 1U : 0U;
    count.done += session.ToldDone() ? 1U : 0U;
  }
  return count;
}

void Print(const char* what, const Count& count, std::size_t part, const char* partOfThem) {
  std::cout << "figure: " << what << ": " << count.right << " of " << count.run << " (" << part
            << " of them " << partOfThem << ")\n";
}

TEST(Faults, AtEveryStepOfARead) {
  const Count count = RunAll(ReadCases(), kStride);
  Print("faults in reads", count, count.unnoticed, "look like a whole listing");
}

TEST(Faults, AtEveryStepOfAWrite) {
  const Count count = RunAll(WriteCases(), kStride);
  Print("faults in writes", count, count.unnoticed, "only a read-back can tell");
}

// The read-back detects commands that the server accepted and lost, and confirms all others.
TEST(Faults, InAWriteThatIsVerified) {
  std::vector<FaultCase> cases = WriteCases();
  std::erase_if(cases, [](const FaultCase& each) { return each.fault != Fault::Lost; });
  const Count count = RunAll(cases, 1, true);
  EXPECT_GT(count.done, 0U);
  Print("lost commands in writes that are verified", count, count.done, "lost nothing that counts");
}

TEST(Faults, OverTagsInAWriteThatIsVerified) {
  std::vector<FaultCase> cases = WriteCases();
  std::erase_if(cases, [](const FaultCase& each) { return each.transport != Transport::Tags; });
  const Count count = RunAll(cases, kStride, true);
  EXPECT_EQ(count.unnoticed, 0U);
  Print("faults in writes over tags that are verified", count, count.done, "reported as done");
}

}  // namespace
}  // namespace zek::faults
