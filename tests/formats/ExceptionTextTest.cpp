#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <tuple>
#include <vector>

#include "formats/CatalogueLimits.h"
#include "formats/ExceptionCells.h"
#include "formats/ExceptionRecords.h"
#include "formats/ExceptionText.h"
#include "lang/TextNumbers.h"
#include "support/TestSession.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;
constexpr Generation kZek1 = Generation::Zek1;
constexpr Generation kZek2 = Generation::Zek2;
constexpr ExceptionOptions kOptions1{1, 100};
constexpr ExceptionOptions kOptions2{1, 0};

// "start..stop on/off; " for each used row; the texts of the boxes and the values as they are.
std::string Dump(const ExceptionTable& table) {
  std::ostringstream out;
  for (const OvcRow& row : table.rows) {
    if (!row.used) continue;
    const auto& texts = TextsOf(row, '.').texts;
    out << texts[0] << ' ' << texts[1] << ".." << texts[3] << ' ' << texts[4] << ' ' << row.valueOn
        << '/' << row.valueOff << "; ";
  }
  return out.str();
}

BuiltLines Build(const ExceptionTable& table, const ExceptionOwner& owner, const Lines& lines) {
  const ExceptionOptions& options = owner.generation == kZek2 ? kOptions2 : kOptions1;
  return BuildExceptions(table, owner, lines, options, '.');
}
BuildError ErrorOf(const ExceptionTable& table, const ExceptionOwner& owner,
                   const Lines& lines = {}) {
  const auto built = Build(table, owner, lines);
  return std::holds_alternative<BuildError>(built) ? std::get<BuildError>(built) : BuildError{};
}

struct Case {
  std::string name;
  Generation generation;
  Lines lines;
  std::string dump;
  Lines rebuilt;  // the same lines when empty
};

const std::vector<Case> kCases = {
    {"PLT1",
     kZek1,
     {"  101 !PLT1        !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16"},
     "2026-12-24 08:00..2026-12-26 17:00 21/16; ",
     {}},
    {"x",
     kZek2,
     {"2     01-JAN-2027              !06:30..00:00 !.!.",
      "1     24-DEC-2026..26-DEC-2026 !08:00..17:00 !21    !16"},
     "2027-01-01 06:30..  999999/999999; 2026-12-24 08:00..2026-12-26 17:00 21/16; ",
     {"2     01-JAN-2027              !06:30..00:00 !.!.",
      "3     24-DEC-2026..26-DEC-2026 !08:00..17:00 !21    !16"}},
    // The latest first, equal starts in their order; others' lines stay and come first.
    {"AHU1",
     kZek1,
     {"    7 !AHU1        !01-JAN-26,00:00                        !1        !.",
      "    6 !ahu1        !01-JAN-26,00:00                        !1        !.",
      "    9 !AHU1        !01-JAN-00,00:00                        !0.5      !-2",
      "   10 !AHU1        !01-JAN-26,00:00                        !.!0"},
     "2026-01-01 00:00..  1/999999; 2026-01-01 00:00..  999999/0; 2000-01-01 00:00..  0.5/-2; ",
     {"    6 !ahu1        !01-JAN-26,00:00                        !1        !.",
      "    7 !AHU1        !01-JAN-26,00:00                        !1        !.",
      "    8 !AHU1        !01-JAN-26,00:00                        !.!0",
      "    9 !AHU1        !01-JAN-00,00:00                        !0.5      !-2"}},
    // Years of two digits; a name of more characters than a line holds.
    {"Heating_North_2",
     kZek1,
     {"1!Heating_Nort!31-OCT-89,23:59!1!.", "2!Heating_Nort!31-OCT-90,24:00!1,5!."},
     "2089-10-31 23:59..  1/999999; 1990-11-01 00:00..  1.5/999999; ",
     {"    1 !Heating_Nort!31-OCT-89,23:59                        !1        !.",
      "    2 !Heating_Nort!01-NOV-90,00:00                        !1.5      !."}},
    // A stop time without a date is kept within the day; 24:00 stays. Dates roll over.
    {"x",
     kZek2,
     {"1     31-FEB-2026              !00:00..24:00 !1     !.",
      "2     29-FEB-2024              !24:00..24:00 !1     !.",
      "3     01-JAN-2020..01-JAN-1995 !00:00..24:00 !1     !."},
     "2026-03-03 00:00.. 24:00 1/999999; 2024-03-01 00:00.. 24:00 1/999999; "
     "2020-01-01 00:00..1995-01-02 00:00 1/999999; ",
     {"1     03-MAR-2026              !00:00..24:00 !1     !.",
      "2     01-MAR-2024              !00:00..24:00 !1     !.",
      "3     01-JAN-2020..02-JAN-1995 !00:00..00:00 !1     !."}},
    // A time or value that is no number reads as 0.
    {"T",
     kZek1,
     {"1!T!29-FEB-00,ab:-5..31-DEC-9,x!x!y", "2 !T!01-JAN-26!x!y"},
     "2026-01-01 00:00..  0/0; 2000-02-29 00:00..2009-12-31 00:00 0/0; ",
     {"    1 !T           !01-JAN-26,00:00                        !0        !0",
      "    2 !T           !29-FEB-00,00:00..31-DEC-09,00:00       !0        !0"}},
};

TEST(ExceptionText, ReadsAndBuildsBack) {
  for (const Case& each : kCases) {
    SCOPED_TRACE(each.lines.front());
    const ExceptionOwner owner{each.name, each.generation};
    const ExceptionReading reading = ReadExceptions(each.lines, owner);
    EXPECT_EQ(reading.linesLost, 0U);
    EXPECT_EQ(Dump(reading.table), each.dump);
    EXPECT_EQ(std::get<Lines>(Build(reading.table, owner, each.lines)),
              each.rebuilt.empty() ? each.lines : each.rebuilt);
  }
}

TEST(ExceptionText, RefusesWhatIsNoException) {
  const std::vector<std::tuple<Generation, std::string>> cases = {
      {kZek1, "1!T!24-dec-26,08:00!1!."},
      {kZek1, "1!T!"},
      {kZek1, "1!T!24-EC--26,08:00!1!."},
      {kZek1, "1!T!24-DEC-26,08:00..24-MAJ-26,09:00!1!."},
      {kZek2, "1     24-MAJ-2026!08:00..09:00!1!."},
      {kZek2, "1     24-MAY-2026..24-!08:00..09:00!1!."},
      {kZek2, ""},
      {kZek1, "1!T!24-DEC-26,08:00!1"},  // without its stop value
      {kZek2, "1     24-DEC-2026!08:00..09:00!1"},
      {kZek1, "1!T!24-DEC-26,08:00 ..26-DEC-26,17:00!1!."},  // moved by a column
      {kZek1, "1!T!24-DEC-26,08:00..26-DEC-26,17:000!1!."},
      {kZek2, "1     24-DEC-2026 ..26-DEC-2026!08:00..09:00!1!."},
      {kZek2, "1     24-DEC-2026!08:00 ..09:00!1!."},
      {kZek1, "1!T!24-DEC-26,25:00!1!."},
      {kZek2, "1     24-DEC-2026!08:00..09:60!1!."},
      {kZek1, "1!T!00-DEC-26,08:00!1!."},
      {kZek1, "1!T!24-DEC-xx,08:00!1!."},
      {kZek1, "1!T!24-DEC-x9,08:00!1!."},
      {kZek1, "1!T!24-DEC-26,08:00..32-DEC-26,09:00!1!."},
      {kZek2, "1     24-DEC-!08:00..09:00!1!."},
      {kZek2, "1     24-DEC-2026..24-DEC-1899!08:00..09:00!1!."},
  };
  for (const auto& [generation, line] : cases) {
    SCOPED_TRACE(line);
    const std::string good =
        generation == kZek1 ? "2!T!24-DEC-26,08:00!1!." : "2     24-DEC-2026!08:00!1!.";
    const ExceptionReading reading = ReadExceptions(Lines{line, good}, {"T", generation});
    EXPECT_EQ(reading.refused, (std::vector<RefusedException>{{text::kExceptionRefused, line}}));
    EXPECT_EQ(reading.linesLost, 1U);
    EXPECT_TRUE(reading.table.rows[0].used);
  }
}

TEST(ExceptionText, StarredLinesAreDroppedButForColumnEight) {
  const std::string old = "!24-DEC-26,08:00                        !1        !.";
  const Lines lines = {"  101 !T           " + old + "*", "  102 !*T          " + old,
                       "  103 !*U          " + old, "  104 !U           " + old,
                       "* 105 !U           " + old};
  const ExceptionOwner owner{"*T", kZek1};
  const ExceptionReading reading = ReadExceptions(lines, owner);
  EXPECT_EQ(Dump(reading.table), "2026-12-24 08:00..  1/999999; ");
  EXPECT_EQ(reading.linesLost, 3U);
  EXPECT_EQ(std::get<Lines>(Build(reading.table, owner, lines)), (Lines{lines[3], lines[1]}));

  const std::string modern = "1     24-DEC-2026              !08:00..09:00 !1     !. *";
  EXPECT_EQ(modern.size() % 8, 0U);
  EXPECT_EQ(ReadExceptions(Lines{modern, modern + "*", " " + modern}, {"T", kZek2}).linesLost, 1U);
}

TEST(ExceptionText, NinthLineEndsTheReadingUnsorted) {
  for (const Generation generation : {kZek1, kZek2}) {
    Lines lines;
    for (char day = '1'; day <= '9'; ++day) {
      lines.push_back(generation == kZek1 ? std::string("1!T!0") + day + "-JAN-26,00:00!1!."
                                          : std::string("1     0") + day + "-JAN-2026!00:00!1!.");
    }
    const ExceptionOwner owner{"T", generation};
    const Lines eight(lines.begin(), lines.begin() + 8);
    EXPECT_EQ(DateOf(ReadExceptions(eight, owner).table.rows[0].start).day, 8);
    lines.push_back(lines[0] + "*");
    lines.push_back(lines[0]);
    lines.emplace_back("1!U!x");  // another's on a ZEK1, of an unknown month on a ZEK2
    const ExceptionReading reading = ReadExceptions(lines, owner);
    EXPECT_EQ(reading.refused, (std::vector<RefusedException>{{text::kExceptionsFull, lines[8]}}));
    EXPECT_EQ(reading.linesLost, generation == kZek1 ? 3U : 4U);
    EXPECT_EQ(DateOf(reading.table.rows[0].start).day, 1);
    EXPECT_EQ(DateOf(reading.table.rows[7].start).day, 8);
  }
}

ExceptionTable OneRow() {
  ExceptionTable table;
  table.rows[5] = {true, DateMoment(2026, 12, 24), 0, 1, kNoValue};
  return table;
}

TEST(ExceptionText, NumbersStart) {
  const std::vector<std::tuple<ExceptionOwner, ExceptionOptions, Lines, int>> cases = {
      {{"T", kZek1}, {1, 100}, {}, 1},
      {{"T", kZek1}, {40, 100}, {}, 40},
      {{"T", kZek1}, {1, 100}, {"1 !U!", "2 !U!"}, 3},
      {{"T", kZek1}, {1, 100}, {"2 !U!", "1 !U!"}, 2},  // the lines are looked through once
      {{"T", kZek1}, {1, 100}, {"7 !U!", "0 !T!", "-3 !T!", "12 !T!", "5 !T!"}, 12},
      {{"T", kZek1}, {1, 100}, {"7 !T!*"}, 1},
      {{"T", kZek2}, {30, 0}, {"17    x", "4     x"}, 17},
      {{"T", kZek2}, {0, 0}, {}, -1},  // a line 0 would not be read again
      {{"PLT3", kZek1}, {1, 100}, {"7 !PLT3!"}, 301},
      {{"plt 12", kZek1}, {5, 10}, {}, 125},
      {{"PLT", kZek1}, {1, 100}, {}, 1},
      {{"PLT3", kZek2}, {1, 0}, {"7     x"}, 1},
      {{"PLT1", kZek1}, {-100, 100}, {}, -1},  // 0 stands for not known
      {{"PLT999", kZek1}, {1, 100}, {}, -1},
      {{"PLT999999999", kZek1}, {1, 32767}, {}, -1},
  };
  for (const auto& [owner, options, lines, number] : cases) {
    const auto built = BuildExceptions(OneRow(), owner, lines, options, '.');
    if (number < 0) {
      EXPECT_TRUE(std::holds_alternative<BuildError>(built)) << owner.name;
    } else {
      EXPECT_EQ(std::stoi(std::get<Lines>(built).back()), number) << owner.name;
    }
  }
}

TEST(ExceptionText, NumbersGoOnPastThoseThatAreTaken) {
  ExceptionTable table = OneRow();
  table.rows[0] = table.rows[6] = table.rows[5];
  const Lines lines = {"  101 !U!", "  101 !PLT1!", "  102 !U!"};
  const auto built = std::get<Lines>(Build(table, {"PLT1", kZek1}, lines));
  ASSERT_EQ(built.size(), 5U);
  EXPECT_EQ(Lines(built.begin(), built.begin() + 2), (Lines{lines[0], lines[2]}));
  for (std::size_t i = 2; i < 5; ++i) EXPECT_EQ(std::stoul(built[i]), 101 + i);
}

TEST(ExceptionText, RefusesWhatNoLineHolds) {
  const ExceptionOwner old{"T", kZek1};
  const ExceptionOwner modern{"T", kZek2};
  EXPECT_EQ(ErrorOf(OneRow(), old, {"32767 !T!"}).text, 0);
  EXPECT_EQ(ErrorOf(OneRow(), old, {"32768 !T!"}).text, text::kLineNumberTooLarge);
  const auto negative = BuildExceptions(OneRow(), old, {}, {-1, 0}, '.');
  EXPECT_EQ(std::get<BuildError>(negative).text, text::kLineNumberTooSmall);
  EXPECT_EQ(ErrorOf(OneRow(), old, Lines(200, "1!U!")).text, 0);
  EXPECT_EQ(ErrorOf(OneRow(), old, Lines(201, "1!U!")).text, text::kCatalogueFull);
  EXPECT_EQ(ErrorOf(OneRow(), modern, Lines(201, "1!U!")).text, 0);

  ExceptionTable table = OneRow();
  table.rows[5].valueOn = -1234.5F;
  EXPECT_EQ(ErrorOf(table, old).text, 0);
  EXPECT_EQ(ErrorOf(table, modern).values,
            (std::array<std::string, 3>{"-1234.5", "2026-12-24 00:00", "6"}));
  table.rows[5].valueOn = 1.234567E-10F;
  EXPECT_EQ(ErrorOf(table, old).text, text::kValueTooLong);
  table.rows[5].valueOn = kNoValue;
  table.rows[5].valueOff = 1.234567E-10F;  // the last field has no end
  EXPECT_EQ(ErrorOf(table, modern).text, 0);

  // Start year, stop year (-1: no date), and whether each generation has it.
  const std::vector<std::tuple<int, int, bool, bool>> years = {
      {1990, 2089, true, true},   {1989, -1, false, true},   {2090, -1, false, true},
      {2000, 2090, false, true},  {1900, 9999, false, true}, {1899, -1, false, false},
      {2000, 1899, false, false},
  };
  for (const auto& [start, stop, fitsOld, fitsModern] : years) {
    table = {};
    table.rows[0] = {true, DateMoment(start, 12, 31), stop < 0 ? 90 : DateMoment(stop, 1, 31)};
    EXPECT_EQ(ErrorOf(table, old).text, fitsOld ? 0 : text::kYearUnfit) << start;
    EXPECT_EQ(ErrorOf(table, modern).text, fitsModern ? 0 : text::kYearUnfit) << start;
  }
  table.rows[0].start = DateMoment(9999, 12, 31) + kMinutesOfDay;
  EXPECT_EQ(ErrorOf(table, modern).values[0], "10000-01-01");
}

TEST(ExceptionText, DatesOfAnySize) {
  EXPECT_EQ(DateMoment(1899, 12, 30), 0);
  EXPECT_EQ(DateText(DateMoment(29, 2, 29)), "2029-03-01");
  EXPECT_EQ(DateText(DateMoment(30, 2, 29)), "1930-03-01");
  EXPECT_EQ(DateText(DateMoment(123, 4, 5)), "0123-04-05");
  for (const double number : {-1e308, -1.0, 1e9, 1e308}) {
    const Moment moment = DateMoment(number, number, number) + TimeMoment(number, number);
    EXPECT_GE(TimeOfDay(moment), 0) << number;
    EXPECT_LT(TimeOfDay(moment), kMinutesOfDay) << number;
    EXPECT_FALSE(DateText(moment).empty()) << number;
  }
}

TEST(ExceptionText, RandomTablesComeBack) {
  std::mt19937 random(26);
  const auto upTo = [&random](int n) { return static_cast<int>(random() % (n + 1U)); };
  for (int round = 0; round < 3000; ++round) {
    const bool modern = upTo(1) == 1;
    const int firstYear = modern ? 1900 : 1990;
    const auto anyDate = [&] {
      return DateMoment(firstYear + upTo(99), 1 + upTo(11), 1 + upTo(27));
    };
    ExceptionTable table;
    const int used = upTo(8);
    for (int i = 0; i < used; ++i) {
      OvcRow& row = table.rows[static_cast<std::size_t>(i)];
      row = {true, anyDate() + upTo(1439)};
      if (upTo(1) == 1) {
        row.stop = anyDate() + upTo(1439);
      } else if (modern) {
        row.stop = upTo(1440);
      }
      row.valueOn = upTo(3) == 0 ? kNoValue : static_cast<float>(upTo(2) * 1000 - 500) / 8.F;
      if (upTo(1) == 1) row.valueOff = static_cast<float>(upTo(999999)) / 100;
    }
    std::stable_sort(table.rows.begin(), table.rows.end(),
                     [](auto& left, auto& right) { return left.start > right.start; });
    const ExceptionOwner owner{upTo(1) == 1 ? "PLT7" : "Åtta åtta8"_w1252.data(),
                               modern ? kZek2 : kZek1};
    const char separator = upTo(1) == 1 ? ',' : '.';
    const auto built = BuildExceptions(table, owner, {}, {1, 100}, separator);
    ASSERT_TRUE(std::holds_alternative<Lines>(built)) << round;
    ASSERT_EQ(ReadExceptions(std::get<Lines>(built), owner).table, table) << round;
  }
}

// Cut and mixed-up lines must do no harm; what could be read must come back from what is built.
TEST(ExceptionText, HostileLines) {
  std::mt19937 random(7);
  const Lines pieces = {"!",  "..",  "-",    "DEC", "JAN-26", "T",   " ", "\x01",       "1e9", "-1",
                        "24", ":30", "\xFF", ",",   "999999", "1.5", "*", "31-DEC-9999"};
  Lines lines = {"", std::string(10000, '!'), std::string(10000, '9'),
                 "1!T!" + std::string(10000, '.'), std::string("1!T!\0\0-DEC-1", 12)};
  for (int round = 0; round < 5000; ++round) {
    for (const Generation generation : {kZek1, kZek2}) {
      const ExceptionOwner owner{"T", generation};
      const ExceptionTable table = ReadExceptions(lines, owner).table;
      const auto built = Build(table, owner, lines);
      if (!std::holds_alternative<Lines>(built)) continue;
      ASSERT_EQ(Dump(ReadExceptions(std::get<Lines>(built), owner).table), Dump(table)) << round;
    }
    lines = {random() % 2 == 0 ? "1!T!24-DEC-26" : "1     24-DEC-2026"};
    for (auto n = random() % 8; n > 0; --n) lines[0] += pieces[random() % pieces.size()];
  }
}

TEST(ExceptionOptions, AreThoseOfTheGeneration) {
  test::TestSession session;
  const auto numbers = session.proc.Numbers();
  const auto check = [&](Generation generation, int startRow, int multiplyPlt) {
    const auto options = ReadExceptionOptions(numbers, generation);
    ASSERT_TRUE(options);
    EXPECT_EQ(options->OVCStartRow, startRow);
    EXPECT_EQ(options->OVCMultiplyPLT, multiplyPlt);
  };
  check(kZek1, 1, 100);
  check(kZek2, 1, 0);
  ASSERT_FALSE(session.profile.WriteIni("SaveOptionsZEK1", "OVCStartRow", "5"));
  ASSERT_FALSE(session.profile.WriteIni("SaveOptionsZEK2", "OVCMultiplyPLT", "50.5"));
  check(kZek1, 5, 100);
  check(kZek2, 1, 50);
  ASSERT_FALSE(session.profile.WriteIni("SaveOptionsZEK2", "OVCMultiplyPLT", "40000"));
  EXPECT_TRUE(session.prompts.shown.empty());
  EXPECT_FALSE(ReadExceptionOptions(numbers, kZek2));
  EXPECT_EQ(session.prompts.shown.size(), 1U);
}

TEST(ExceptionRecords, WritesUsedRows) {
  ExceptionTable table;
  table.rows[1] = {true, DateMoment(2026, 12, 24) + 480, DateMoment(2026, 12, 26) + 1020, 21.5F,
                   16};
  table.rows[3] = {true, DateMoment(2027, 1, 1), 1440, kNoValue, kNoValue};
  EXPECT_EQ(ExceptionRecords(table, {"AHU", "DUC 3", "Heat"}, ','),
            (Lines{"AHU;DUC 3;Heat;2026-12-24;08:00;21,5;2026-12-26;17:00;16",
                   "AHU;DUC 3;Heat;2027-01-01;00:00;;;24:00;"}));
}

}  // namespace
}  // namespace zek
