#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include <wx/calctrl.h>
#include <wx/dialog.h>
#include <wx/vlbox.h>

#include "Keys.h"
#include "PlantWorld.h"
#include "editors/EntryCases.h"
#include "editors/TimeChoices.h"
#include "formats/CatalogueFields.h"
#include "formats/WeekdayCells.h"
#include "forms/exception/ZV_OVC.h"
#include "forms/weekday/ZV_WDC.h"
#include "ui/WxText.h"

// The table of entries and outcomes, entered into the boxes of the editors.
namespace zek::window {
namespace {

struct BoxKind {
  std::string word;  // in the table
  std::string name;
};

struct GridKind {
  const char* form;
  const char* begin;      // of an outcome
  const char* elsewhere;  // a box that no line enters into
  void (*show)(wxWindow*, ZV_Proc&, WxTurn&, const CatalogueContent&,
               const std::optional<EntryPlace>&);
  std::size_t kindStep;  // from a kind of box to the next one, in the order of the Tab key
  std::size_t numberStep;
  std::vector<BoxKind> kinds;
};

const GridKind& GridOf(const std::string& editor) {
  static const GridKind weekday{"ZV_WDC",
                                " 0/0:",
                                "Text_Start6",
                                ShowWeekdayForm,
                                7,
                                1,
                                {{"start", "Text_Start"},
                                 {"stop", "Text_Stop"},
                                 {"on", "Text_ValueOn"},
                                 {"off", "Text_ValueOff"}}};
  static const GridKind exception{"ZV_OVC",
                                  "0:",
                                  "Text_DateOn7",
                                  ShowExceptionForm,
                                  1,
                                  6,
                                  {{"date", "Text_DateOn"},
                                   {"start", "Text_Start"},
                                   {"on", "Text_ValueOn"},
                                   {"until", "Text_DateOff"},
                                   {"stop", "Text_Stop"},
                                   {"off", "Text_ValueOff"}}};
  return editor == "weekday" ? weekday : exception;
}

std::string IniOf(const test::FormatCase& given) {
  return std::string("[General]\nAlwaysUseDSS=yes\n[Topics]\nO=YES,") +
         (given.Has("ZEK2") ? "ZEK2" : "ZEK1") + ",plant:1,Object\n[O]\nT=Control;" +
         (given.Has("list") ? "9" : "0") +
         "\n[TXI_9]\nAv=0\nP\xE5=1\nDag=20.5\nDagtid=21\nNatt=17\n";
}

/// An editor's window that gets one table.
class Grid {
 public:
  explicit Grid(const test::EntryTable& table)
      : table_(table), kind_(GridOf(table.editor)), world_({}, IniOf(table.given)) {
    std::string language;  // each text is its own name
    for (const auto& [number, name] : test::TextNames())
      language += "\n" + std::to_string(number) + "=" + name;
    world_.session.texts = {};
    world_.session.texts.Read(language);
    world_.session.settings.DecimalSeparator = table.given.Has("comma") ? ',' : '.';
    world_.session.now = [] { return LocalTime{2026, 8, 1, 13, 30, 0}; };
    world_.Select("O/T");
  }

  void Play(bool byMouse) {
    CatalogueContent content;
    for (const std::string& line : table_.given.lines) content.lines.push_back(line.substr(1));
    const std::string first = kind_.kinds[0].name + "0";
    window::Play({{[&] { return IsActive(kind_.form) && HasFocus(first); },
                   [&] {
                     for (const test::EntryCase& entry : table_.entries) {
                       if (byMouse ? !entry.byMouse : !entry.byKeys) continue;
                       EXPECT_EQ(Outcome(entry.text, byMouse), entry.outcome)
                           << table_.editor << table_.given.head << ": " << entry.text;
                       TakeBack();
                     }
                     Escape();
                   }}});
    kind_.show(nullptr, world_.session, world_.turn, content, {});
    Pump(20);  // the form is deleted when idle; the next one has controls of the same names
  }

 private:
  const BoxKind& KindOf(const std::string& word) const {
    return *std::find_if(kind_.kinds.begin(), kind_.kinds.end(),
                         [&](const BoxKind& each) { return each.word == word; });
  }
  std::size_t PlaceOf(const std::string& box) const {
    const auto kind = std::find_if(kind_.kinds.begin(), kind_.kinds.end(), [&](const auto& each) {
      return box.substr(0, box.size() - 1) == each.name;
    });
    return static_cast<std::size_t>(kind - kind_.kinds.begin()) * kind_.kindStep +
           static_cast<std::size_t>(box.back() - '0') * kind_.numberStep;
  }
  static std::string Focused() {
    const wxWindow* const focus = wxWindow::FindFocus();
    return focus == nullptr ? std::string() : focus->GetName().ToStdString();
  }
  static std::string LabelOf(const char* name) {
    return wxControl::RemoveMnemonics(Shown(name)->GetLabel()).ToStdString();
  }
  static std::string Status() { return LabelOf("Label_Status"); }
  bool Usable(const char* button) const { return Shown(button)->IsEnabled(); }

  // Makes the entries and returns what comes of them, as the table says it.
  std::string Outcome(const std::string& line, bool byMouse) {
    std::istringstream words(line);
    std::string told;
    for (std::string word; words >> word;) {
      std::replace(word.begin(), word.end(), '_', ' ');
      const std::size_t equals = word.find('=');
      const std::string box = KindOf(word.substr(0, equals)).name + "0";
      const std::string text = word.substr(equals + 1);
      told += byMouse ? PickInto(box, text) : TypeInto(box, text);
    }
    if (byMouse) Reach(kind_.elsewhere, [this] { Click(Box(kind_.elsewhere)); });
    return Row() + told;
  }

  std::string TypeInto(const std::string& box, const std::string& text) {
    for (std::size_t from = PlaceOf(Focused()), to = PlaceOf(box); from != to;
         from < to ? ++from : --from) {
      Press(WXK_TAB, from < to ? 0 : wxMOD_SHIFT);
    }
    EXPECT_TRUE(PumpUntil([&] { return HasFocus(box); })) << box;
    const std::size_t told = world_.prompts.shown.size();
    if (text.empty()) Press(WXK_DELETE);
    const auto arrived = [&](std::size_t letters) {
      return PumpUntil(
          [&] { return !HasFocus(box) || FromWx(Box(box).GetValue()) == text.substr(0, letters); });
    };
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (static_cast<unsigned char>(text[at]) < 0x80) {
        Type(text.substr(at, 1));
      } else if (arrived(at)) {  // not on every keyboard
        Box(box).WriteText(ToWx(text.substr(at, 1)));
      }
    }
    EXPECT_TRUE(arrived(text.size())) << Value(box);
    std::string first;
    if (!HasFocus(box)) first = FirstBox();
    const std::string at = Focused();
    Press(WXK_RETURN);
    EXPECT_TRUE(PumpUntil([&] { return !HasFocus(at) || Status().ends_with("Hint"); })) << text;
    if (!HasFocus(at)) return first;
    return Refused(box, text, told);
  }
  std::string FirstBox() const {
    return " <first box " + std::to_string(PlaceOf(Focused()) / kind_.kindStep) + ">";
  }

  // The box has the focus, and shows what was typed or what took its place.
  std::string Refused(const std::string& box, const std::string& text, std::size_t told) {
    const std::string why = Box(box).GetToolTipText().BeforeFirst('.').ToStdString();
    const std::string shown = FromWx(Box(box).GetValue());
    const bool replaced = shown != text;
    EXPECT_TRUE(PumpUntil(
        [&] { return world_.prompts.shown.size() == told + (replaced ? 1 : 0) && HasFocus(box); }));
    if (replaced) {
      EXPECT_EQ(world_.prompts.shown.back().substr(0, 2 + why.size()), "i " + why);
    }
    EXPECT_EQ(FromWx(Box(box).GetStringSelection()), shown);
    Press('Z', wxMOD_CONTROL);  // so that the row shows what is in the table
    EXPECT_TRUE(PumpUntil([&] { return FromWx(Box(box).GetValue()) != shown; }));
    return " <" + why + (replaced ? ": " + shown : "") + ">";
  }

  std::string PickInto(const std::string& box, const std::string& text) {
    const bool isTime = box == "Text_Start0" || box == "Text_Stop0";
    Reach(box, [&] { Click(Box(box)); });
    if (isTime && TurnTo(box, text)) return {};
    const wxRect cell = Box(box).GetParent()->GetScreenRect();
    const bool isOpen = Shown("Menu_Popup") != nullptr;  // a value's, by the click on its text
    if (!isOpen) ClickAt({cell.GetRight() - 5, cell.y + cell.height / 2});
    const auto drop = [] {
      wxWindow* const calendar = Shown("Calendar_Popup");
      return calendar != nullptr ? calendar : Shown("Menu_Popup");
    };
    EXPECT_TRUE(PumpUntil([&] { return drop() != nullptr || !HasFocus(box); })) << box;
    if (!HasFocus(box)) return FirstBox();
    wxWindow& content = *drop()->GetChildren().front();
    ClickAt(content.ClientToScreen(box.starts_with("Text_Date") ? DayPlace(content, text)
                                                                : ItemPlace(content, box, text)));
    EXPECT_TRUE(PumpUntil([&] { return drop() == nullptr; })) << box;
    return {};
  }

  // By the wheel, if it is not far.
  static bool TurnTo(const std::string& box, const std::string& text) {
    constexpr int most = 8;
    const std::string time = ClockText(TypedTime(text).value());
    const auto stepsTo = [&](int step) {
      std::string now = Value(box);
      int steps = 0;
      for (; steps < most && now != time; ++steps) now = QuarterBeside(now, step);
      return now == time ? steps : most;
    };
    const int step = stepsTo(1) <= stepsTo(-1) ? 1 : -1;
    if (stepsTo(step) == most) return false;
    for (int steps = stepsTo(step); steps > 0; --steps) {
      wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
      wheel.m_wheelDelta = 120;
      wheel.m_wheelRotation = step * wheel.m_wheelDelta;
      Box(box).ProcessWindowEvent(wheel);
    }
    EXPECT_EQ(Value(box), time);
    return true;
  }

  static wxPoint DayPlace(const wxWindow& content, const std::string& text) {
    auto& days = dynamic_cast<wxCalendarCtrlBase&>(const_cast<wxWindow&>(content));
    wxDateTime wanted;
    EXPECT_TRUE(wanted.ParseISODate(text) || wanted.ParseFormat(text, "%Y%m%d")) << text;
    const wxSize size = content.GetClientSize();
    for (int y = 0; y < size.y; y += 4) {
      for (int x = 0; x < size.x; x += 4) {
        wxDateTime day;
        const wxCalendarHitTestResult hit = days.HitTest({x, y}, &day);
        if ((hit == wxCAL_HITTEST_DAY || hit == wxCAL_HITTEST_SURROUNDING_WEEK) &&
            day.IsSameDate(wanted)) {
          return {x + 4, y + 4};
        }
      }
    }
    ADD_FAILURE() << text << " is not in the month";
    return {};
  }

  wxPoint ItemPlace(wxWindow& content, const std::string& box, const std::string& text) const {
    auto& list = dynamic_cast<wxVListBox&>(content);
    const std::size_t count = list.GetItemCount();
    std::size_t item = 0;
    if (box == "Text_Start0" || box == "Text_Stop0") {
      const std::vector<std::string> times = QuarterHours();
      const auto found = std::find(times.begin(), times.end(), ClockText(TypedTime(text).value()));
      item = static_cast<std::size_t>(found - times.begin()) - (times.size() - count);
    } else {
      const std::vector<std::string> names{"default", "av", "p\xE5", "dag", "dagtid", "natt"};
      const std::string sought = ToWx(text).Lower().ToStdString(wxConvISO8859_1);
      const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
        return name.starts_with(sought);
      });
      item = static_cast<std::size_t>(found - names.begin()) - (names.size() - count);
    }
    list.ScrollToRow(item);
    const int lines = static_cast<int>(std::min<std::size_t>(count, 12));
    const int line = list.GetClientSize().y / lines;
    return {20, line * static_cast<int>(item - list.GetVisibleRowsBegin()) + line / 2};
  }

  // The boxes and the state.
  std::string Row() {
    while (Focused().starts_with("Text_Value")) {  // the name is shown without the focus
      const std::string at = Focused();
      Press(WXK_RETURN);
      EXPECT_TRUE(PumpUntil([&] { return !HasFocus(at); }));
    }
    std::string row = kind_.begin;
    if (table_.editor == "weekday") row = LabelOf("Option_Type0") + row;
    for (const BoxKind& kind : kind_.kinds) {
      const wxTextCtrl& box = Box(kind.name + "0");
      const std::string text = FromWx(box.GetValue());
      const std::string tip = box.GetToolTipText().ToStdString();
      row += " " + (text.empty() ? "-" : text);
      if (!tip.empty() && tip != "kPickListHint") row += "!" + tip;
    }
    const auto& form = dynamic_cast<wxDialog&>(*Shown(kind_.form));
    if (form.GetTitle().StartsWith("*")) row += " changed";
    return row + (Usable("Command_Undo") ? " undo" : "");
  }

  void TakeBack() {
    while (Usable("Command_Undo")) {
      const std::string before = Row();
      Press('Z', wxMOD_CONTROL);
      if (!PumpUntil([&] { return Row() != before; })) return ADD_FAILURE() << before;
    }
  }

  const test::EntryTable& table_;
  const GridKind& kind_;
  PlantWorld world_;
};

void PlayGrids(const std::string& editor, bool byMouse) {
  for (const test::EntryTable& table : test::EntryTables())
    if (table.editor == editor) Grid(table).Play(byMouse);
}

TEST(Entries, WeekdaysByKeyboard) { PlayGrids("weekday", false); }
TEST(Entries, WeekdaysByMouse) { PlayGrids("weekday", true); }
TEST(Entries, ExceptionsByKeyboard) { PlayGrids("exception", false); }
TEST(Entries, ExceptionsByMouse) { PlayGrids("exception", true); }

}  // namespace
}  // namespace zek::window
