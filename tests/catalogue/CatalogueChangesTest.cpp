#include <gtest/gtest.h>

#include "catalogue/CatalogueChanges.h"

namespace zek {

void PrintTo(const CatalogueChange& change, std::ostream* out) {
  *out << static_cast<int>(change.kind) << '/' << static_cast<int>(change.reason) << " '"
       << change.before << "' -> '" << change.after << "'";
}

namespace {

using Lines = std::vector<std::string>;
using Changes = std::vector<CatalogueChange>;
using enum ChangeKind;
using enum DropReason;

CatalogueRules Rules(Catalogue kind, const std::string& control, Generation generation,
                     bool shared) {
  return {kind, control, generation, shared, {generation, 93, 2099}, '.'};
}
CatalogueRules Old(Catalogue kind, const std::string& control) {
  return Rules(kind, control, Generation::Zek1, true);
}
CatalogueRules Modern(Catalogue kind, const std::string& control) {
  return Rules(kind, control, Generation::Zek2, false);
}

std::string Weekday(const std::string& number, const std::string& name, const std::string& days,
                    const std::string& times, const std::string& on, const std::string& off) {
  const auto wide = [](std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
  };
  return " " + number + " !" + wide(name, 12) + "!" + wide(days, 13) + "!" + wide(times, 25) + "!" +
         wide(on, 9) + "!" + off;
}

Changes Compare(const CatalogueRules& rules, const Lines& before, const Lines& after) {
  return ChangesBetween({before, {}}, {after, {}}, rules);
}

const std::string kMonday = Weekday("1000", "T1", "MO..FR", "07:00..16:30", "21", "17");

TEST(CatalogueChanges, NumbersPaddingRangesAndNotationAreNoChange) {
  EXPECT_EQ(Compare(Modern(Catalogue::Wdc, "T1"),
                    {kMonday, Weekday("1001", "T1", "SU", "08:00", "1", ".")},
                    {Weekday("1000", "T1", "SU", "08:00", "1.0", "."),
                     Weekday("1001", "T1", "MO", "07:00..16:30", "21", "17"),
                     Weekday("1002", "T1", "TU..FR", "07:00..16:30", "21,0", "17.00")}),
            Changes());
  EXPECT_EQ(Compare(Old(Catalogue::Sdc, "PLT7"),
                    {" 1000 !24-DEC-26..26-DEC-26                                !SD1"},
                    {" 701  24-DEC-26                !SD1", " 702  25-DEC-26..26-DEC-26     !SD1"}),
            Changes());
  EXPECT_EQ(Compare(Modern(Catalogue::Ovc, "T1"), {"1     24-DEC-2026 !08:00..17:00 !21.0!."},
                    {"7     24-DEC-2026              !08:00..17:00 !21    !."}),
            Changes());
}

TEST(CatalogueChanges, WeekdaysAreToldByDayAndTime) {
  EXPECT_EQ(Compare(Modern(Catalogue::Wdc, "T1"),
                    {kMonday, Weekday("1001", "T1", "SA", "09:00", "1", "."),
                     Weekday("1002", "T1", "SD6..SD7", "00:00", "1", "0")},
                    {Weekday("1000", "T1", "MO", "07:00..16:30", "21", "17"),
                     Weekday("1001", "T1", "TU..FR", "07:00..17:00", "21", "17"),
                     Weekday("1003", "T1", "SA..SU", "09:00", "1", "."),
                     Weekday("1004", "T1", "SD1", "10:00", "-0.5", "0")}),
            (Changes{{Changed, "TU..FR    07:00..16:30  21  17", "TU..FR    07:00..17:00  21  17"},
                     {Added, "", "SU        09:00         1  ."},
                     {Added, "", "SD1       10:00         -0.5  0"},
                     {Removed, "SD6..SD7  00:00         1  0", "", MayStay}}));
}

TEST(CatalogueChanges, WhatIsGoneOfItsOwnIsRemovedInASharedCatalogueToo) {
  EXPECT_EQ(Compare(Old(Catalogue::Wdc, "T1"),
                    {kMonday, Weekday("1001", "T1", "SU", "07:00", "1", "0")}, {kMonday}),
            (Changes{{Removed, "SU        07:00         1  0", "", MayStay}}));
  EXPECT_EQ(Compare(Old(Catalogue::Sdc, "T1"),
                    {" 1000 !24-DEC-26                                           !SD1"}, {}),
            (Changes{{Removed, "24-DEC-26             SD1", "", MayStay}}));
}

TEST(CatalogueChanges, DaysThatAreNoRunAreToldByThemselves) {
  const auto line = [](const char* day) { return Weekday("1000", "T1", day, "09:00", "1", "."); };
  EXPECT_EQ(Compare(Modern(Catalogue::Wdc, "T1"), {},
                    {line("MO"), line("WE"), line("SU"), line("SD1"), line("SD2")}),
            (Changes{{Added, "", "MO        09:00         1  ."},
                     {Added, "", "WE        09:00         1  ."},
                     {Added, "", "SU        09:00         1  ."},
                     {Added, "", "SD1..SD2  09:00         1  ."}}));
}

TEST(CatalogueChanges, AnotherTimeInTheSameLineIsAChange) {
  EXPECT_EQ(
      Compare(Modern(Catalogue::Wdc, "T1"), {kMonday},
              {Weekday("1000", "T1", "MO..FR", "07:15..16:30", "21", "17")}),
      (Changes{{Changed, "MO..FR    07:00..16:30  21  17", "MO..FR    07:15..16:30  21  17"}}));
}

TEST(CatalogueChanges, CalendarsAreToldByDateAndJoinedToRuns) {
  EXPECT_EQ(Compare(Modern(Catalogue::Sdc, "T1"),
                    {" 1000 !30-DEC-2026..02-JAN-2027                            !SD1",
                     " 1001 !05-MAY-2027                                         !SD2"},
                    {" 1000 !30-DEC-2026                                         !SD1",
                     " 1001 !31-DEC-2026..02-JAN-2027                            !SU",
                     " 1002 !28-FEB-2028..01-MAR-2028                            !SD3"}),
            (Changes{{Changed, "31-DEC-2026..02-JAN-2027  SD1", "31-DEC-2026..02-JAN-2027  SU"},
                     {Added, "", "28-FEB-2028..01-MAR-2028  SD3"},
                     {Removed, "05-MAY-2027               SD2", ""}}));
}

TEST(CatalogueChanges, ExceptionsAreToldByTheirStart) {
  EXPECT_EQ(Compare(Old(Catalogue::Ovc, "PLT1"),
                    {"  101 !PLT1        !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16",
                     "  201 !PLT2        !13-DEC-26,06:00                        !1        !."},
                    {"  201 !PLT2        !13-DEC-26,06:00                        !1        !.",
                     "  101 !PLT1        !24-DEC-26,08:00..27-DEC-26,17:00       !21       !16"}),
            (Changes{{Changed, "24-DEC-26,08:00..26-DEC-26,17:00  21  16",
                      "24-DEC-26,08:00..27-DEC-26,17:00  21  16"}}));
}

TEST(CatalogueChanges, TheValueIsComparedWhereOneIsSent) {
  const CatalogueRules rules = Modern(Catalogue::Ovc, "T1");
  EXPECT_EQ(ChangesBetween({{}, "21"}, {{}, "21,0"}, rules), Changes());
  EXPECT_EQ(ChangesBetween({{}, "21"}, {{}, std::nullopt}, rules), Changes());
  EXPECT_EQ(ChangesBetween({{}, "21"}, {{}, "."}, rules),
            (Changes{{Changed, ".DFV = 21", ".DFV = ."}}));
  EXPECT_EQ(ChangesBetween({}, {{}, "5"}, rules), (Changes{{Added, "", ".DFV = 5"}}));
}

struct DropCase {
  const char* name;
  CatalogueRules rules;
  Lines before;
  Lines after;
  Changes changes;
};

std::string Exception(int number, int day) {
  return std::to_string(number) + "     " + std::to_string(day) +
         "-DEC-2026              !08:00..17:00 !21    !16";
}

DropCase NineExceptions() {
  DropCase each{"a ninth exception", Modern(Catalogue::Ovc, "T1"), {}, {}, {}};
  for (int i = 1; i <= 9; ++i) each.before.push_back(Exception(i, 10 + i));
  each.after.assign(each.before.begin(), each.before.end() - 1);
  each.changes = {{Dropped, "19-DEC-2026  08:00..17:00  21  16", "", TooManyExceptions}};
  return each;
}

TEST(CatalogueChanges, WhatTheFormatCannotHoldIsToldWithItsReason) {
  const std::string plt = " 701  MO                       !07:00        !21    ";
  const std::string other = Weekday("1100", "T2", "MO", "07:00", "1", "0");
  const DropCase cases[] = {
      NineExceptions(),
      {"a line with *",
       Modern(Catalogue::Sdc, "T1"),
       {" 1000 !**-DEC-2026    !SD1"},
       {},
       {{Dropped, "**-DEC-2026  SD1", "", Starred}}},
      {"an exception with *",
       Old(Catalogue::Ovc, "T1"),
       {"    1 !T2          !*4-DEC-26,08:00                        !1        !."},
       {},
       {{Dropped, "T2  *4-DEC-26,08:00  1  .", "", Starred}}},
      {"the stop value of a PLT",
       Modern(Catalogue::Wdc, "PLT7"),
       {plt + "!17"},
       {plt},
       {{Dropped, "MO        07:00         21  17", "MO        07:00         21", PltStopValue}}},
      {"a stop value that goes on",
       Modern(Catalogue::Wdc, "PLT7"),
       {plt + "!17"},
       {plt + "!17"},
       {}},
      {"an unknown day",
       Modern(Catalogue::Wdc, "T1"),
       {Weekday("1000", "T1", "XX", "07:00", "1", "0")},
       {},
       {{Dropped, "T1  XX  07:00  1  0", "", Unreadable}}},
      {"another control",
       Old(Catalogue::Wdc, "T1"),
       {kMonday, other, plt},
       {kMonday},
       {{Dropped, "PLT7    MO        07:00         21", "", OtherControl},
        {Dropped, "T2      MO        07:00         1  0", "", OtherControl}}},
      {"another control's number",
       Old(Catalogue::Wdc, "T1"),
       {kMonday, Weekday("0001", "T2", "MO", "07:00", "1", "0")},
       {kMonday, Weekday("0001", "T1", "SU", "07:00", "1", "0")},
       {{Added, "", "SU        07:00         1  0"},
        {Removed, "T2      MO        07:00         1  0", "", Overwritten}}},
      {"lines of another PLT under this one's numbers",
       Old(Catalogue::Wdc, "PLT6"),
       {plt},
       {" 601  MO                       !07:00        !21    "},
       {{Added, "", "MO        07:00         21"},
        {Dropped, "PLT7    MO        07:00         21", "", OtherControl}}},
  };
  for (const DropCase& each : cases)
    EXPECT_EQ(Compare(each.rules, each.before, each.after), each.changes) << each.name;
}

TEST(CatalogueFaults, OnlyWhatIsMissingDifferentOrLeftOver) {
  const CatalogueRules rules = Old(Catalogue::Wdc, "T1");
  const std::string other = Weekday("1100", "T2", "MO", "07:00", "1", "0");
  const std::string again = Weekday("1007", "T1", "MO..FR", "07:00..16:30", "21", "17");
  const auto faults = [&rules](const Lines& sent, const Lines& fetched) {
    return FaultsOf({sent, {}}, {fetched, "5"}, rules);
  };
  EXPECT_EQ(faults({kMonday}, {other, kMonday, again}), Changes()) << "twice, and others";
  EXPECT_EQ(faults({kMonday, other}, {kMonday}),
            (Changes{{Removed, "T2      MO        07:00         1  0", ""}}));
  EXPECT_EQ(faults({kMonday}, {kMonday, Weekday("1001", "T1", "SU", "07:00", "1", "0")}),
            (Changes{{Added, "", "SU        07:00         1  0"}}));
  EXPECT_EQ(
      faults({kMonday}, {Weekday("1000", "T1", "MO..FR", "07:00..16:30", "22", "17")}),
      (Changes{{Changed, "MO..FR    07:00..16:30  21  17", "MO..FR    07:00..16:30  22  17"}}));
}

}  // namespace
}  // namespace zek
