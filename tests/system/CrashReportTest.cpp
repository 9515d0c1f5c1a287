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
               {Crash::Overflow, {"stack overflow", "access violation"}},
               {Crash::Abort, {"abort"}},
               {Crash::Terminate, {"unhandled exception NSt"}}};
  // A child may run this test from its beginning, so that the folder's name must be the same there,
  // and nothing may be looked at before the last child has ended.
  const std::string folder = ExecutableDirectory() + "crash-test/";
  const auto folderOf = [&](const auto& each) { return folder + each.faults[0] + "/"; };
  for (const auto& each : cases) {
    std::filesystem::create_directories(PathOf(folderOf(each)));
    EXPECT_DEATH((CatchCrashes(folderOf(each), "tests"), Do(each.crash)), "");
  }
  for (const auto& each : cases) {
    const DiskFiles files;
    const std::string reports = folderOf(each) + kCrashFolder + "/";
    const std::vector<std::string> names = files.List(reports);
    ASSERT_EQ(names.size(), 1U) << each.faults[0];
    const std::string text = files.Read(reports + names[0]).bytes;
    const auto isIn = [&](const std::string& part) { return text.find(part) < text.size(); };
    EXPECT_TRUE(isIn("Fault: " + each.faults[0]) || isIn("Fault: " + each.faults.back())) << text;
    EXPECT_TRUE(isIn("zekview-tests") && !isIn("hemligt")) << text;
    EXPECT_TRUE(isIn(std::to_string(8 * sizeof(void*)) + " bits")) << text;
    EXPECT_GT(std::count(text.begin(), text.end(), '\n'), each.crash == Crash::Overflow ? 60 : 7);
  }
  std::filesystem::remove_all(PathOf(folder));
}

}  // namespace
}  // namespace zek
