#include <csignal>
#include <gtest/gtest.h>

#include "system/Process.h"

namespace zek {
namespace {

// An interrupt that is not caught would end this program.
TEST(Interrupt, EndsAreCaughtOnceEach) {
  for (const int number : {SIGINT, SIGTERM}) {
    CatchInterrupts();
    EXPECT_EQ(std::raise(number), 0);
    EXPECT_TRUE(Interrupted());
    EXPECT_EQ(std::signal(number, SIG_DFL), SIG_DFL) << "who asks twice does not want to wait";
  }
  for (const int number : {SIGINT, SIGTERM}) EXPECT_NE(std::signal(number, SIG_DFL), SIG_ERR);
}

}  // namespace
}  // namespace zek
