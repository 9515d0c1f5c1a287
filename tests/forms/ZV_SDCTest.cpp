#include <gtest/gtest.h>
#include <sstream>

#include <wx/datetime.h>
#include <wx/dialog.h>
#include <wx/radiobut.h>

#include "Keys.h"
#include "PlantWorld.h"
#include "SpokenName.h"
#include "catalogue/Catalogue.h"
#include "editors/EntryCases.h"
#include "forms/calendar/ZV_SDC.h"

namespace zek::window {
namespace {

bool InEditor() { return IsActive("ZV_SDC") && HasFocus("Picture_Days"); }
std::string Label(const std::string& name) { return Shown(name)->GetLabel().ToStdString(); }
bool IsChosen(const std::string& name) {
  return dynamic_cast<const wxRadioButton&>(*Shown(name)).GetValue();
}
// The text of a control for a screen reader.
std::string Spoken(const std::string& name) { return SpokenName(*Shown(name)); }
int ThisYear() { return wxDateTime::Today().GetYear(); }

// The middle of a day's cell on the screen: a row of headings and six of days, seven columns.
wxPoint PlaceOf(int day, int month, int year) {
  const auto weekday = [](const wxDateTime& date) { return (date.GetWeekDay() + 6) % 7; };
  const int cell = weekday(wxDateTime(1, static_cast<wxDateTime::Month>(month), year)) + day - 1;
  const wxWindow& grid = *Shown("Picture_Days");
  const wxSize size = grid.GetClientSize();
  return grid.ClientToScreen(
      wxPoint((2 * (cell % 7) + 1) * size.x / 14, (2 * (cell / 7 + 1) + 1) * size.y / 14));
}

void Drag(const wxPoint& from, const wxPoint& to) {
  wxUIActionSimulator().MouseDragDrop(from.x, from.y, to.x, to.y);
  Pump(50);
}

void Choose(const std::string& option) {
  Click(*Shown(option));
  EXPECT_TRUE(PumpUntil([&] { return IsChosen(option); })) << option;
}

// Presses a key and waits until the window above the grid shows that month.
void Turn(const std::string& month, const std::function<void()>& by) {
  by();
  EXPECT_TRUE(PumpUntil([&] { return Label("Label_Month") == month; })) << month;
}

struct CalendarFormTest : testing::Test {
  CalendarFormTest() {
    world.session.texts.Read(
        "201=&Helgdagar\n202=&Year\n203=&Manad\n204=&Dagtyp\n212=Januari\n223=December\n"
        "225=Next\n226=Last\n227=Spara\n228=Avbryt\n229=type\n");
    world.session.settings.SDCLastTwoDigitYear = 93;
    world.session.settings.SDCLastYear = 2099;
    world.plant.outstations[0].calendar.header = "SPECIALDAGAR";
    world.prompts.answers = {true};
  }

  // Fetches the calendar and opens the editor on it, as the browser does.
  void Run(std::vector<Step> steps) {
    world.Select("SKOLA/AHU1");
    Play(std::move(steps));
    ShowCalendarForm(nullptr, world.session, world.turn, world.Get(Catalogue::Sdc));
  }
  std::map<int, std::string>& PlantLines() { return world.plant.outstations[0].calendar.lines; }

  // "24-DEC-26", with the first shown year or a later one.
  static std::string Date(const std::string& dayAndMonth, int yearsOn = 0) {
    return dayAndMonth + "-" + std::to_string(ThisYear() + yearsOn).substr(2);
  }
  void ExpectChristmasWithoutBoxingDay() {
    ASSERT_EQ(PlantLines().size(), 2U);
    EXPECT_EQ(PlantLines().at(1000).substr(7, 20), Date("24-DEC") + ".." + Date("25-DEC"));
    EXPECT_EQ(PlantLines().at(1000).substr(59), "!SD1");
    EXPECT_EQ(PlantLines().at(1001).substr(7, 10), Date("01-JAN", 1) + " ");
    EXPECT_EQ(PlantLines().at(1001).substr(59), "!SD2");
  }

  PlantWorld world;
  const std::string december = "December " + std::to_string(ThisYear());
  const std::string january = "Januari " + std::to_string(ThisYear() + 1);
};

TEST_F(CalendarFormTest, ByMouse) {
  Run({{InEditor, [this] {
          Turn(december, [] { Click(*Shown("Option_Month11")); });
          Choose("Option_Day8");
          const int year = ThisYear();
          Drag(PlaceOf(24, 11, year), PlaceOf(26, 11, year));
          const std::string spoken = Spoken("Picture_Days");
          EXPECT_NE(spoken.find(" 26 december "), std::string::npos) << spoken;
          EXPECT_NE(spoken.find("SD1"), std::string::npos) << spoken;
          Choose("Option_Day0");
          Drag(PlaceOf(26, 11, year), PlaceOf(26, 11, year));
          Turn(january, [] { Click(*Shown("Command_Next")); });
          EXPECT_TRUE(IsChosen("Option_Year1") && IsChosen("Option_Month0"));
          Choose("Option_Day9");
          Drag(PlaceOf(1, 0, year + 1), PlaceOf(1, 0, year + 1));
          Turn(december, [] { Click(*Shown("Command_Last")); });
          Click(*Shown("Command_Ok"));
        }}});
  ExpectChristmasWithoutBoxingDay();
}

// Given up by Escape, then to the end.
TEST_F(CalendarFormTest, HeldBeyondTheEdgeTheMouseTurnsThePage) {
  Run({{InEditor, [this] {
          Turn(december, [] { Click(*Shown("Option_Month11")); });
          Choose("Option_Day8");
          wxUIActionSimulator mouse;
          const wxRect grid = Shown("Picture_Days")->GetScreenRect();
          const auto dragOn = [&] {
            mouse.MouseMove(PlaceOf(31, 11, ThisYear()));
            mouse.MouseDown();
            Turn(january, [&] { mouse.MouseMove(grid.x + 9, grid.GetBottom() + 9); });
          };
          dragOn();
          Turn(december, Escape);
          mouse.MouseUp();
          dragOn();
          mouse.MouseMove(PlaceOf(2, 0, ThisYear() + 1));
          mouse.MouseUp();
          Pump(50);
          Press('S', wxMOD_CONTROL);
        }}});
  EXPECT_EQ(PlantLines().at(1000).substr(7, 20), Date("31-DEC") + ".." + Date("02-JAN", 1));
  EXPECT_EQ(PlantLines().size(), 1U);
}

TEST_F(CalendarFormTest, ByKeyboardAndFetchedAgain) {
  const auto press = [](std::initializer_list<int> keys, int modifiers = 0) {
    for (const int key : keys) Press(key, modifiers);
  };
  Run({{InEditor, [this, press] {
          // The months of this year, from today's to December.
          for (int month = static_cast<int>(wxDateTime::Today().GetMonth()); month < 11; ++month)
            Press(WXK_PAGEDOWN);
          Turn(december, [] {});
          press({WXK_HOME, WXK_DOWN, WXK_DOWN, WXK_DOWN, WXK_RIGHT, WXK_RIGHT});  // to the 24th
          press({WXK_RIGHT, WXK_RIGHT}, wxMOD_SHIFT);
          press({'1', WXK_RETURN});
          EXPECT_TRUE(PumpUntil([] { return IsChosen("Option_Day8"); }));
          press({WXK_LEFT, WXK_RIGHT, '0', WXK_SPACE});
          Turn(january, [&] { press({WXK_END, WXK_RIGHT}); });
          press({'2', WXK_RETURN});
          Press('S', wxMOD_CONTROL);
        }}});
  ExpectChristmasWithoutBoxingDay();

  const std::map<int, std::string> saved = PlantLines();
  PlantLines().at(1001).replace(7, 2, "02");  // as if another user had changed it
  world.prompts.answers = {true};
  Run({{InEditor, [this, press] {
          for (int month = static_cast<int>(wxDateTime::Today().GetMonth()); month < 12; ++month)
            Press(WXK_PAGEDOWN);
          Turn(january, [] {});
          press({WXK_HOME, WXK_RIGHT, WXK_RIGHT, '2', WXK_RETURN});
          Press('S', wxMOD_CONTROL);
        }}});
  EXPECT_EQ(PlantLines().at(1000), saved.at(1000));
  EXPECT_EQ(PlantLines().at(1001).substr(7, 20), Date("02-JAN", 1) + ".." + Date("03-JAN", 1));
}

TEST_F(CalendarFormTest, HolidaysArePreviewedAndTakenAndCopiedToTheNextYear) {
  const Step take{[] { return IsActive("ZV_Import") && HasFocus("List_Dates"); },
                  [] { Click(*Shown("Command_Take")); }};
  Run({{InEditor, [] { Click(*Shown("Command_Holidays")); }},
       take,
       {InEditor,
        [] {
          Choose("Option_Year1");  // the last one with holidays
          Click(*Shown("Command_CopyYear"));
        }},
       take,
       {InEditor, [] { Press('S', wxMOD_CONTROL); }}});
  std::string lines;
  for (const auto& [number, line] : PlantLines()) lines += line + "\n";
  for (const int year : {0, 1, 2})
    EXPECT_NE(lines.find(Date("25-DEC", year) + ".." + Date("26-DEC", year)), std::string::npos)
        << lines;
}

// The window above goes first; `Run` returns when the editor has ended, too.
TEST_F(CalendarFormTest, EndedBelowAnotherWindowItEndsAfterIt) {
  for (const char* const above : {"Command_Holidays", "Command_Findings"}) {
    const std::string window =
        above == std::string("Command_Holidays") ? "ZV_Import" : "ZV_Findings";
    Run({{InEditor, [above] { Click(*Shown(above)); }},
         {[window] { return IsActive(window); },
          [] {
            Shown("ZV_SDC")->Close(true);
            Escape();
          }}});
    EXPECT_EQ(Shown("ZV_SDC"), nullptr) << above;
  }
}

TEST_F(CalendarFormTest, TheTypeAndTheFramesHaveKeys) {
  Run({{InEditor, [this] {
          Press('D', wxMOD_ALT);
          EXPECT_TRUE(PumpUntil([] { return HasFocus("Option_Day0"); }));
          Press(WXK_DOWN);
          EXPECT_TRUE(PumpUntil([] { return HasFocus("Option_Day1"); }));
          Press(WXK_SPACE);  // needed under Wine only; elsewhere the arrow key has chosen it
          EXPECT_TRUE(PumpUntil([] { return IsChosen("Option_Day1"); }));
          Press('H', wxMOD_ALT);
          EXPECT_TRUE(PumpUntil([] { return HasFocus("Picture_Days"); }));
          Reach("Picture_Year", [] { Press('E', wxMOD_ALT); });
          Reach("Picture_Days", [] { Press(WXK_RETURN); });
          Press(WXK_PAGEDOWN, wxMOD_CONTROL);
          EXPECT_TRUE(PumpUntil([] { return IsChosen("Option_Year1"); }));
          Press(WXK_TAB);
          EXPECT_TRUE(PumpUntil([] { return HasFocus("Option_Day1"); }));
          Press(WXK_ESCAPE);
        }}});
  EXPECT_TRUE(PlantLines().empty());
}

// By keys in the year, then by mouse.
TEST_F(CalendarFormTest, AYearLeadsToItsDays) {
  const auto year = [] { return dynamic_cast<YearGrid*>(Shown("Picture_Year")); };
  Run({{InEditor, [&] {
          Click(*Shown("Command_Year"));
          EXPECT_TRUE(PumpUntil([] { return HasFocus("Picture_Year"); }));
          for (int month = static_cast<int>(wxDateTime::Today().GetMonth()); month < 11; ++month)
            Press(WXK_PAGEDOWN);
          Press(WXK_HOME);
          for (int row = 0; row < 3; ++row) Press(WXK_DOWN);
          EXPECT_TRUE(PumpUntil(
              [] { return Spoken("Picture_Year").find(" 22 december ") != std::string::npos; }));
          Reach("Picture_Days", [] { Press(WXK_RETURN); });
          Turn(december, [] {});
          Click(*Shown("Command_Year"));
          EXPECT_TRUE(PumpUntil([&] { return year() != nullptr && year()->HasFocus(); }));
          const wxRect day = year()->CellOf(0, 6);
          const wxPoint place = year()->ClientToScreen(day.GetPosition() + day.GetSize() / 2);
          Reach("Picture_Days", [&place] { ClickAt(place); });
          Turn("Januari " + std::to_string(ThisYear()), [] {});
          EXPECT_NE(Spoken("Picture_Days").find(" 6 januari "), std::string::npos);
          Escape();
        }}});
}

// --- The table of entries and outcomes ---

void MoveTo(int day, int modifiers = 0) {
  const auto isAt = [](int at) {
    return Spoken("Picture_Days").find(" " + std::to_string(at) + " december ") !=
           std::string::npos;
  };
  int at = 31;
  while (at > 0 && !isAt(at)) --at;
  for (; at < day; ++at) Press(WXK_RIGHT, modifiers);
  for (; at > day; --at) Press(WXK_LEFT, modifiers);
  EXPECT_TRUE(PumpUntil([&] { return isAt(day); })) << Spoken("Picture_Days");
}

void PlayWord(const std::string& what, const std::string& day) {
  if (what == "type") return Press(day == "0" ? '0' : day[0] - 8 + 1);
  if (what == "press") return MoveTo(std::stoi(day));
  if (what != "apply") MoveTo(std::stoi(day), wxMOD_SHIFT);
  if (what != "drag") Press(WXK_RETURN);
}

void PlayWordByMouse(const std::string& what, const std::string& day) {
  if (what == "type") return Choose("Option_Day" + day);
  if (what == "cancel") return Escape();
  const wxPoint outside = Shown("Label_Month")->GetScreenPosition();
  const wxPoint place = day == "-" ? outside : PlaceOf(std::stoi(day), 11, 2026);
  User().MouseMove(place);
  if (what == "press") User().MouseDown();
  if (what == "release") User().MouseUp();
}

// The dates of Christmas, and the state.
std::string Christmas() {
  Pump(20);
  std::string dates;
  for (int day = 24; day < 28; ++day) {
    MoveTo(day);
    const std::string spoken = Spoken("Picture_Days");
    const std::size_t type = spoken.find("SD");
    if (type != std::string::npos)
      dates += "2026-12-" + std::to_string(day) + ";" + spoken.substr(type, 3) + " ";
  }
  const bool changed = dynamic_cast<wxDialog&>(*Shown("ZV_SDC")).GetTitle().StartsWith("*");
  return dates + (changed ? " changed" : "") + (Shown("Command_Undo")->IsEnabled() ? " undo" : "");
}

void PlayEntry(const test::EntryCase& entry, bool byMouse) {
  std::istringstream words(entry.text);
  for (std::string word; words >> word;) {
    const std::size_t equals = word.find('=');
    (byMouse ? PlayWordByMouse : PlayWord)(word.substr(0, equals), word.substr(equals + 1));
  }
  EXPECT_EQ(Christmas(), entry.outcome) << entry.text << (byMouse ? " by mouse" : "");
  if (Shown("Command_Undo")->IsEnabled()) Press('Z', wxMOD_CONTROL);
  EXPECT_TRUE(PumpUntil([] { return !Shown("Command_Undo")->IsEnabled(); }));
}

TEST_F(CalendarFormTest, Entries) {
  world.session.now = [] { return LocalTime{2026, 12, 24}; };
  world.Select("SKOLA/AHU1");
  for (const test::EntryTable& table : test::EntryTables()) {
    if (table.editor != "calendar") continue;
    for (const bool byMouse : {false, true}) {
      Play({{InEditor, [&] {
               for (const test::EntryCase& entry : table.entries)
                 if (byMouse ? entry.byMouse : entry.byKeys) PlayEntry(entry, byMouse);
               Escape();
             }}});
      CatalogueContent content;
      for (const std::string& line : table.given.lines) content.lines.push_back(line.substr(1));
      ShowCalendarForm(nullptr, world.session, world.turn, content, {});
      Pump(20);
    }
  }
}

TEST_F(CalendarFormTest, RefusedLinesAreToldInOrderThenTheGridHasTheFocus) {
  PlantLines() = {{1000, " 1000 !31-FEB-26                                           !SD1"},
                  {1001, " 1001 !01-JAN-26                                           !SD9"}};
  Run({{[this] { return world.prompts.shown.size() == 2 && InEditor(); },
        [] { Press(WXK_ESCAPE); }}});
  ASSERT_EQ(world.prompts.shown.size(), 2U);
  EXPECT_EQ(world.prompts.shown[0], "i Felaktiga tider i SDC (rad 1000)");
  EXPECT_NE(world.prompts.shown[1].find("!SD9)"), std::string::npos);
}

}  // namespace
}  // namespace zek::window
