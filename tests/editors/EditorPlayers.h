#pragma once

#include <algorithm>
#include <array>
#include <cctype>
#include <regex>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

#include "editors/CalendarEditor.h"
#include "editors/ExceptionEditor.h"
#include "editors/WeekdayEditor.h"
#include "formats/ExportRecords.h"
#include "formats/FormatCases.h"
#include "paste/DayCopy.h"
#include "paste/ExceptionBlock.h"
#include "paste/WeekdayBlock.h"
#include "paste/WholeCatalogue.h"
#include "picture/WeekScene.h"
#include "support/TestSession.h"

// Editors driven by text commands; "_" is a blank within a word. Every command gives a line: what
// is shown, the state ("changed", "undo", "redo"), and the messages to the user.
namespace zek::test {

using Words = std::vector<std::string>;

class Player {
 public:
  explicit Player(const FormatCase& given) : given_(given) {
    for (const std::string& line : given.lines)
      (line[0] == '=' ? lines_ : commands_).push_back(line[0] == '=' ? line.substr(1) : line);
  }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  virtual ~Player() = default;

  std::string PlayAll() {
    std::string outcome = Told() + "\n";
    for (const std::string& command : commands_) outcome += Play(command) + "\n";
    return outcome;
  }

  std::string Play(const std::string& command) {
    std::istringstream in(command);
    Words words;
    for (std::string word; in >> word;) {
      std::replace(word.begin(), word.end(), '_', ' ');
      words.push_back(word);
    }
    words.resize(std::max<std::size_t>(words.size(), 3));
    const std::string shown = words[0] == "save" ? Saved(words) : Do(words);
    const EditState state = State();
    return shown + (state.changed ? " changed" : "") + (state.canUndo ? " undo" : "") +
           (state.canRedo ? " redo" : "") + Told();
  }

  virtual EditState State() const = 0;

 protected:
  virtual std::string Do(const Words& words) = 0;
  virtual SaveOutcome Save(const CatalogueWriter& writer) = 0;
  Access access() const { return given_.Has("view") ? Access::ViewOnly : Access::Edit; }
  // "| list": with the values of a pick-list, in a file of the same encoding.
  PickList Names() {
    if (!given_.Has("list")) return {};
    session_.files.files["/ini/ZEKView.INI"] +=
        "[TXI_9]\r\nAv=0\r\nP\xE5=1\r\nDag=20.5\r\nDagtid=21\r\nNatt=17\r\n";
    return ReadPickList(session_.profile, 9, separator());
  }
  char separator() const { return given_.Has("comma") ? ',' : '.'; }
  SaveOutcome SaveEdited(const std::optional<EditedCatalogue>& edited,
                         const CatalogueWriter& writer) {
    if (!edited) return SaveOutcome::NotTried;
    return SaveWithRetry(*edited, writer, {session_.proc.texts, prompts_});
  }

  static std::size_t Number(const std::string& word) { return std::stoul(word); }

  // "date=2026-12-24 start=08:00": what is typed into boxes, one after the other. `enter` returns
  // the refusal of a box's text, if any.
  template <class Box, std::size_t N, class Enter>
  void EnterEach(const std::array<const char*, N>& boxes, const Words& words, Enter enter) {
    for (const std::string& word : words) {
      if (word.empty()) continue;
      const std::size_t equals = word.find('=');
      const auto* const box = std::find(boxes.begin(), boxes.end(), word.substr(0, equals));
      const std::optional<Refusal> refusal =
          enter(static_cast<Box>(box - boxes.begin()), word.substr(equals + 1));
      if (!refusal) continue;
      prompts_.shown.push_back(TextName(refusal->text) +
                               (refusal->instead.empty() ? "" : ": " + refusal->instead));
    }
  }
  // Copied text with ";" for tabs and "^" for line ends, which is also how it is pasted.
  static std::string Pasted(const std::string& text) {
    return std::regex_replace(text, std::regex("\\^"), "\r\n");
  }
  static std::string Copied(std::string text) {
    std::replace(text.begin(), text.end(), '\t', ';');
    std::erase(text, '\r');
    std::replace(text.begin(), text.end(), '\n', '^');
    return text;
  }
  // Takes what was pasted, or shows why not.
  template <class Table, class Editor>
  void Take(const std::variant<Table, PasteRefusal>& pasted, Editor& editor) {
    if (const auto* table = std::get_if<Table>(&pasted)) return editor.Replace(*table);
    Refuse(std::get<PasteRefusal>(pasted));
  }
  void Refuse(const PasteRefusal& refusal) {
    const std::string message = Copied(refusal.MessageIn(session_.proc.texts));
    prompts_.shown.push_back(std::regex_replace(Filled(message), std::regex(" +(\\^|$)"), "$1"));
  }
  // A box's text and, after "!", its mark.
  static std::string Marked(const std::string& text, std::int32_t mark) {
    return " " + (text.empty() ? "-" : text) + (mark == 0 ? "" : "!" + TextName(mark));
  }

  const FormatCase& given_;
  std::vector<std::string> lines_;
  TestSession session_;
  ScriptedPrompts& prompts_ = session_.prompts;

 private:
  // "save 2 yes no": the first two writes fail; "yes" and "no" answer the questions.
  std::string Saved(const Words& words) {
    std::size_t failures = words[1].empty() ? 0 : Number(words[1]);
    for (std::size_t word = 2; word < words.size(); ++word)
      if (!words[word].empty()) prompts_.answers.emplace_back(words[word] == "yes");
    std::string written;
    const SaveOutcome outcome = Save([&](const Words& lines) {
      written += " [";
      for (const std::string& line : lines) written += line + ";";
      written += "]";
      using Outcome = SaveResult::Outcome;
      return SaveResult{failures-- == 0 ? Outcome::Saved : Outcome::Failed, true, {}};
    });
    constexpr std::array outcomes = {"not tried", "not stored", "refused", "given up", "written"};
    return outcomes.at(static_cast<std::size_t>(outcome)) + written;
  }

  std::string Told() {
    std::string told;
    for (const std::string& message : prompts_.shown) told += " <" + Filled(message) + ">";
    prompts_.shown.clear();
    return told;
  }

  std::vector<std::string> commands_;
};

class WeekdayPlayer final : public Player {
 public:
  explicit WeekdayPlayer(const FormatCase& given) : Player(given) {
    session_.proc.texts = NamedTexts("614=Ons\n615=Tors\n616=Fre\n");
    for (const RefusedLine& refused : editor_.Refused())
      ShowRefused(refused, prompts_, session_.proc.texts);
  }

  EditState State() const override { return editor_.State(); }
  const WeekdayTable& Table() const { return editor_.Table(); }

 protected:
  std::string Do(const Words& words) override {
    const std::string& what = words[0];
    const bool isNumber = !words[1].empty() && std::isdigit(words[1][0]) != 0;
    const std::size_t at = isNumber ? Number(words[1]) : 0;
    if (what == "type") editor_.ShowType(at);
    if (what == "row") editor_.ShowRow(at);
    if (what == "column") editor_.FocusColumn(at);
    if (what == "enter") {
      editor_.FocusColumn(at);
      constexpr std::array boxes = {"start", "stop", "on", "off"};
      EnterEach<WeekdayBox>(boxes, {words.begin() + 2, words.end()},
                            [&](WeekdayBox box, const std::string& text) {
                              return editor_.Enter({box, at}, text);
                            });
    }
    if (what == "copy") editor_.Copy();
    if (what == "days") CopyToDays(words[1], words[2]);
    if (what == "block")
      return Copied(
          WriteBlock(CopyBoxes(editor_.Now(), BoxAt(words[1]), BoxAt(words[2]), editor_.Rules())));
    if (what == "paste") {
      const auto block = ReadBlock(Pasted(words[2]));
      Take(PasteBoxes(editor_.Now(), BoxAt(words[1]), block, editor_.Rules()), editor_);
    }
    if (what == "whole") return Copied(WriteCatalogue(editor_.Now(), "SKOLA/T", editor_.Rules()));
    if (what == "paste-whole") return PasteWhole(Pasted(words[1]));
    if (what == "erase") editor_.Erase();
    if (what == "lost") editor_.CountLost(at);
    if (what == "undo") return Place(editor_.Undo());
    if (what == "redo") return Place(editor_.Redo());
    if (what == "walk") return Walk();
    if (what == "notes") return Notes();
    if (what == "bars") return Bars();
    return Shown(editor_.Column());
  }
  SaveOutcome Save(const CatalogueWriter& writer) override {
    return SaveEdited(editor_.Edited(), writer);
  }

 private:
  // "21": column 2, box 1.
  WeekdayBoxAt BoxAt(const std::string& at) const {
    return {{editor_.Type() * kDaysOfType + static_cast<std::size_t>(at[0] - '0'), editor_.Row()},
            static_cast<WeekdayBox>(at[1] - '0')};
  }
  void CopyToDays(const std::string& days, const std::string& what) {
    DaySet to;
    for (std::size_t day = 0; day < days.size(); ++day) to.set(day, days[day] == 'x');
    const DayCopy copy = what == "row"   ? DayCopy::Row
                         : what == "day" ? DayCopy::Day
                                         : DayCopy::WholeDay;
    const WeekdayCell from{editor_.Type() * kDaysOfType + editor_.Column(), editor_.Row()};
    const auto copied = zek::CopyToDays(editor_.Now(), from, to, copy);
    if (const auto* table = std::get_if<EditedWeekdays>(&copied)) return editor_.Replace(*table);
    prompts_.shown.push_back("no room in " + std::to_string(std::get<std::size_t>(copied)));
  }
  std::string PasteWhole(const std::string& text) {
    const auto pasted = ReadCatalogue(text, editor_.Rules());
    if (const auto* refused = std::get_if<PasteRefusal>(&pasted)) {
      Refuse(*refused);
      return Shown(editor_.Column());
    }
    const auto& copied = std::get<CopiedCatalogue>(pasted);
    editor_.Replace(copied.edited);
    return copied.from + " " + Filled(OutsideText(copied.outside, session_.proc.texts, {}));
  }
  // The position and the content of the box.
  std::string Shown(std::size_t column) const {
    std::string shown = Filled(editor_.TypeCaption(editor_.Type(), session_.proc.texts)) + " " +
                        std::to_string(editor_.Row()) + "/" + std::to_string(column) + ":";
    for (const WeekdayBox box :
         {WeekdayBox::Start, WeekdayBox::Stop, WeekdayBox::ValueOn, WeekdayBox::ValueOff})
      shown += Marked(editor_.ShownText({box, column}), editor_.MarkOf({box, column}));
    return shown;
  }
  std::string Notes() const {
    std::string notes;
    for (const std::string& note : editor_.Notes(session_.proc.texts)) notes += Filled(note) + "; ";
    return notes;
  }
  // From and to of the picture's bars, in minutes, for each day; each bar's words, and the note.
  std::string Bars() const {
    const Scene scene = WeekScene(Table(), editor_.Type(),
                                  {session_.proc.texts, {}, [](float) { return std::string(); }});
    std::string bars;
    for (const SceneBar& bar : scene.bars)
      bars += std::to_string(bar.row) + ":" + std::to_string(bar.from) + "-" +
              std::to_string(bar.to) + " ";
    for (const SceneBar& bar : scene.bars)
      bars += "[" + std::to_string(bar.lane) + " " + Filled(bar.sentence) + "]";
    return bars + Filled(scene.note);
  }
  std::string Place(const std::optional<WeekdayFocus>& focus) const {
    if (!focus) return "nothing";
    return Shown(focus->column) + " box " + std::to_string(static_cast<int>(focus->box));
  }
  // Walks over all boxes with Enter and changes none.
  std::string Walk() {
    WeekdayFocus at;
    std::string way;
    do {
      way += std::to_string(static_cast<int>(at.box)) + std::to_string(at.column) + " ";
      editor_.Enter(at, editor_.CellText(at));
      at = NextFocus(at);
    } while (at != WeekdayFocus{});
    return way + (editor_.HasStopValues() ? "with stop values" : "without stop values");
  }

  WeekdayEditor editor_{lines_, given_.Owner(), separator(), Names(), access()};
};

class ExceptionPlayer final : public Player {
 public:
  explicit ExceptionPlayer(const FormatCase& given) : Player(given) {
    session_.proc.texts = NamedTexts("");
    for (const RefusedException& refused : editor_.Refused())
      ShowRefused(refused, prompts_, session_.proc.texts);
  }

  EditState State() const override { return editor_.State(); }
  const ExceptionTable& Table() const { return editor_.Table(); }

 protected:
  std::string Do(const Words& words) override {
    const std::string& what = words[0];
    std::size_t row =
        words[1].empty() || what == "first" ? editor_.Row() : Number(words[1].substr(0, 1));
    if (what == "row") editor_.FocusRow(row);
    if (what == "enter") Enter(row, {words.begin() + 2, words.end()});
    if (what == "erase") row = editor_.Erase();
    if (what == "block")
      return Copied(WriteBlock(
          CopyBoxes(editor_.Table(), BoxAt(words[1]), BoxAt(words[2]), editor_.Rules())));
    if (what == "paste") {
      const auto block = ReadBlock(Pasted(words[2]));
      Take(PasteBoxes(editor_.Table(), BoxAt(words[1]), block, editor_.Rules()), editor_);
      row = BoxAt(words[1]).row;
    }
    if (what == "first") session_.profile.WriteIni("SaveOptionsZEK1", "OVCStartRow", words[1]);
    if (what == "undo") return Place(editor_.Undo());
    if (what == "redo") return Place(editor_.Redo());
    if (what == "walk") return Walk();
    return Shown(row);
  }
  SaveOutcome Save(const CatalogueWriter& writer) override {
    return SaveEdited(editor_.Edited(session_.proc.Numbers()), writer);
  }

 private:
  // "21": row 2, box 1.
  static ExceptionBoxAt BoxAt(const std::string& at) {
    return {static_cast<ExceptionBox>(at[1] - '0'), static_cast<std::size_t>(at[0] - '0')};
  }
  void Enter(std::size_t row, const Words& entries) {
    constexpr std::array boxes = {"date", "start", "on", "until", "stop", "off"};
    EnterEach<ExceptionBox>(
        boxes, entries, [&](ExceptionBox box, const std::string& text) -> std::optional<Refusal> {
          const auto first = editor_.FirstBox({box, row});
          if (first && text != editor_.CellText({box, row}))
            prompts_.shown.push_back("first box " + std::to_string(static_cast<int>(first->box)));
          return editor_.Enter({box, row}, text);
        });
  }
  std::string Shown(std::size_t row) const {
    std::string shown = std::to_string(row) + ":";
    for (std::size_t i = 0; i < kExceptionBoxes; ++i) {
      const ExceptionFocus at{static_cast<ExceptionBox>(i), row};
      shown += Marked(editor_.ShownText(at), editor_.MarkOf(at));
    }
    return shown;
  }
  std::string Place(const std::optional<ExceptionFocus>& focus) const {
    if (!focus) return "nothing";
    return Shown(editor_.Row()) + " box " + std::to_string(static_cast<int>(focus->box));
  }
  std::string Walk() {
    ExceptionFocus at;
    std::string way;
    do {
      way += std::to_string(at.row) + std::to_string(static_cast<int>(at.box)) + " ";
      editor_.Enter(at, editor_.CellText(at));
      at = NextFocus(at);
    } while (at != ExceptionFocus{});
    return way;
  }

  // The time is 13:30 on 1 August 2026.
  ExceptionEditor editor_{lines_,      given_.Owner(),
                          separator(), Names(),
                          access(),    [] { return DateMoment(2026, 8, 1) + TimeMoment(13, 30); }};
};

class CalendarPlayer final : public Player {
 public:
  explicit CalendarPlayer(const FormatCase& given) : Player(given) {
    session_.proc.texts = NamedTexts(
        "205=Mandag\n206=Tisdag\n207=Onsdag\n208=Torsdag\n209=Fredag\n210=Lordag\n211=\xD6ndag\n"
        "212=January\n213=February\n217=June\n222=November\n223=December\n"
        "230=   Ma Ti On To Fr Lo So SD1SD2SD3SD4SD5SD6SD7");
    for (const RefusedDates& refused : editor_.Refused())
      ShowRefused(refused, prompts_, session_.proc.texts);
  }

  EditState State() const override { return editor_.State(); }
  const CalendarTable& Table() const { return editor_.Table(); }

 protected:
  std::string Do(const Words& words) override {
    const std::string& what = words[0];
    const LanguageTexts& texts = session_.proc.texts;
    if (what == "enter") {  // "type=8 press=24": commands
      for (std::size_t word = 2; word < words.size(); ++word) {
        const std::size_t equals = words[word].find('=');
        Do({words[word].substr(0, equals), words[word].substr(equals + 1), {}});
      }
      return Dates();
    }
    const bool number = words[1].find_first_of("0123456789") != std::string::npos;
    const auto day = number ? std::optional(std::stoi(words[1])) : std::nullopt;
    if (what == "swedish") editor_.MarkSwedishHolidays();
    if (what == "press") editor_.Press(day);
    if (what == "drag") editor_.Drag(day);
    if (what == "release") editor_.Release(day, prompts_, texts);
    if (what == "cancel") editor_.CancelDrag();
    if (what == "turn") editor_.DragOn(words[1] == "on" ? 1 : -1);
    if (what == "type") editor_.ChooseType(*day);
    if (what == "apply") editor_.Apply(prompts_, texts);
    if (what == "year") editor_.ShowYear(*day);
    if (what == "month") editor_.ShowMonth(*day);
    if (what == "step" && !editor_.Step(*day)) return "no step";
    if (what == "undo" && !editor_.Undo()) return "nothing";
    if (what == "redo" && !editor_.Redo()) return "nothing";
    if (what == "move" || what == "extend") editor_.MoveCursor(MoveOf(words[1]), what == "extend");
    if (what == "cell") return Cell(*day);
    if (what == "dates") return Dates();
    const auto selection = editor_.Selection();
    return Filled(editor_.MonthText(texts)) + " " + std::to_string(editor_.Cursor()) +
           (selection ? " selected " + std::to_string(selection->first) + ".." +
                            std::to_string(selection->last)
                      : "");
  }
  SaveOutcome Save(const CatalogueWriter& writer) override {
    return SaveEdited(editor_.Edited(), writer);
  }

 private:
  static CalendarMove MoveOf(const std::string& word) {
    constexpr std::array moves = {"left", "right", "up", "down", "home", "end"};
    return static_cast<CalendarMove>(std::find(moves.begin(), moves.end(), word) - moves.begin());
  }
  std::string Cell(int day) const {
    const CalendarCell cell = editor_.Cell(day, session_.proc.texts);
    constexpr std::array colours = {"ordinary", "free", "selected"};
    return cell.number + " '" + cell.type + "' " +
           colours.at(static_cast<std::size_t>(cell.Colour())) + (cell.today ? " today: " : ": ") +
           Filled(editor_.CellName(day, session_.proc.texts));
  }
  std::string Dates() const {
    std::string dates;
    const auto records = CalendarRecords(editor_.Table(), {});
    if (records.size() > 30) return std::to_string(records.size()) + " dates";
    for (const std::string& record : records) dates += record.substr(2) + " ";
    return dates;
  }
  CalendarDate Today() const {
    return given_.Has("today")
               ? CalendarDate{given_.Number("today"), given_.Number("month"), given_.Number("day")}
               : CalendarDate{2026, 11, 24};  // a Thursday
  }

  CalendarEditor editor_{lines_, given_.Owner(), {Generation::Zek1, 30, 2030}, Today(), access()};
};

}  // namespace zek::test
