#include <csignal>
#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"
#include "system/CrashReport.h"
#include "system/DiskFiles.h"
#include "system/Process.h"

namespace zek {
namespace {

volatile bool always = true;
int* volatile nowhere = nullptr;

int Recurse(volatile int* above) {
  volatile int here = *above + 1;
  return always ? Recurse(&here) + here : here;
}

void Throw() {
  if (always) throw std::string("hemligt");
}

enum class Crash { Access, Overflow, Abort, Terminate };

void Do(Crash crash) {
  volatile int start = 0;
  if (crash == Crash::Access) *nowhere = 1;
  if (crash == Crash::Overflow) Recurse(&start);
  if (crash == Crash::Abort) std::abort();
  if (crash == Crash::Terminate) []() noexcept { Throw(); }();
}

// Each crash leaves one report, which names the fault, this program's own functions, and nothing
// that was in the memory.
TEST(CrashReport, TellsWhatAndWhere) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer handles faults itself";
#endif
  const struct {
    Crash crash;
    std::vector<std::string> faults;  // one of them
  } cases[] = {{Crash::Access, {"access violation"}},
               {Crash::Overflow, {"access violation", "stack overflow"}},
               {Crash::Abort, {"abort"}},
               {Crash::Terminate, {"unhandled exception NSt"}}};
  // A child may run this test from its beginning, so the folder's name must be the same there.
  const std::string folder = ExecutableDirectory() + "crash-test/";
  const std::filesystem::path reports = PathOf(folder + kCrashFolder);
  for (const auto& each : cases) {
    std::filesystem::create_directories(PathOf(folder));
    EXPECT_DEATH((CatchCrashes(folder, "tests"), Do(each.crash)), "");
    ASSERT_TRUE(std::filesystem::exists(reports)) << each.faults[0];
    const DiskFiles files;
    const std::vector<std::string> names = files.List(folder + kCrashFolder + "/");
    ASSERT_EQ(names.size(), 1U);
    const std::string text = files.Read(folder + kCrashFolder + "/" + names[0]).bytes;
    bool named = false;
    for (const std::string& fault : each.faults)
      named = named || text.find("Fault: " + fault) != std::string::npos;
    EXPECT_TRUE(named) << text;
    EXPECT_NE(text.find("zekview-tests"), std::string::npos) << text;
    EXPECT_EQ(text.find("hemligt"), std::string::npos);
    EXPECT_GT(std::count(text.begin(), text.end(), '\n'), each.crash == Crash::Overflow ? 60 : 7);
    std::filesystem::remove_all(PathOf(folder));
  }
}

}  // namespace
}  // namespace zek
