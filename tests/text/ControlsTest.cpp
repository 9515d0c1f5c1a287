#include <gtest/gtest.h>
#include <string>

#include "text/Controls.h"

namespace zek {
namespace {

// Characters are checked 16, 8 and 1 at a time. Tests every place in each such group, in texts that
// end right after it and in longer ones.
TEST(Controls, FindsTheFirstOneAtEveryPlace) {
  for (const char control : {'\0', '\n', '\x1F'}) {
    for (std::size_t place = 0; place < 50; ++place) {
      for (std::size_t behind = 0; behind < 50; ++behind) {
        std::string text(place, ' ');
        text += control + std::string(behind, '\r');
        ASSERT_EQ(FindControl(text), place) << "with " << behind << " behind";
        ASSERT_EQ(FindControl(text, place + 1), behind > 0 ? place + 1 : std::string::npos);
      }
    }
  }
}

TEST(Controls, LettersOfEveryKindAreNone) {
  std::string text;
  for (int code = 32; code < 256; ++code) text += static_cast<char>(code);
  EXPECT_EQ(FindControl(text), std::string::npos);
  EXPECT_EQ(FindControl(""), std::string::npos);
}

}  // namespace
}  // namespace zek
