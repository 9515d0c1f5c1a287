#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

#include "text/Numbers.h"

namespace zek {
namespace {

TEST(Numbers, ValReadsTheLeadingNumber) {
  const auto cases = std::to_array<std::pair<const char*, double>>({
      {"", 0},        {"abc", 0},
      {"  12!x", 12}, {"-3.5", -3.5},
      {"+7", 7},      {"1.2.3", 1.2},
      {".5", 0.5},    {"1E3x", 1000},
      {"1e", 1},      {"07", 7},
      {"12abc", 12},  {"inf", 0},
      {"-nan", 0},    {"- 5", 0},
      {"\t5", 0},     {"0x10", 0},
      {"21,5", 21},   {"+-5", 0},
      {".", 0},       {"-", 0},
      {"1e-999", 0},  {"1e999", std::numeric_limits<double>::max()},
  });
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
  EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(Val(std::string(400, '9') + ".1"), std::numeric_limits<double>::max());
  EXPECT_EQ(Val("1" + std::string(21, '0')), 1e21);
}

TEST(Numbers, ToInt16RoundsHalfToEvenAndRefusesTheRest) {
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(3.5), 4);
  EXPECT_EQ(ToInt16(-0.5), 0);
  EXPECT_EQ(ToInt16(32767.4), 32767);
  EXPECT_EQ(ToInt16(-32768), -32768);
  EXPECT_FALSE(ToInt16(32767.5));
  EXPECT_FALSE(ToInt16(-32769));
  EXPECT_FALSE(ToInt16(Val("1e999")));
}

TEST(Numbers, FormatKeepsSevenDigits) {
  const auto cases = std::to_array<std::pair<double, const char*>>({
      {0, "0"},
      {-0.0, "0"},
      {21, "21"},
      {21.5, "21.5"},
      {0.1F, "0.1"},
      {1234567, "1234567"},
      {10000000, "1E+07"},
      {-3.25, "-3.25"},
      {999999, "999999"},
      {0.00001, "1E-05"},
      {1.0 / 3, "0.3333333"},
  });
  for (const auto& [value, text] : cases) EXPECT_EQ(FormatNumber(value, '.'), text);
  EXPECT_EQ(FormatNumber(21.5, ','), "21,5");
}

TEST(Numbers, ParseTakesBothSeparators) {
  EXPECT_EQ(ParseNumber("21,5"), 21.5);
  EXPECT_EQ(ParseNumber("21.5"), 21.5);
  EXPECT_EQ(ParseNumber(" 1,2,3"), 1.2);
  EXPECT_EQ(ParseNumber(","), 0);
}

TEST(Numbers, IsNumericWantsTheWholeText) {
  EXPECT_TRUE(IsNumeric("046"));
  EXPECT_TRUE(IsNumeric(" 46 "));
  EXPECT_FALSE(IsNumeric("ENG"));
  EXPECT_FALSE(IsNumeric("4a"));
  EXPECT_FALSE(IsNumeric(""));
}

}  // namespace
}  // namespace zek
