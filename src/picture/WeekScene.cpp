#include "picture/WeekScene.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

constexpr int kNarrow = 20;  // minutes; a bar without length covers about as much

using Day = std::array<WeekdayRow, kWeekdayRows>;

int EndOf(const WeekdayRow& row, const Day& day) {
  if (row.stop != kNoTime) return std::max(row.stop, row.start);
  int end = kMinutesOfDay;
  for (const WeekdayRow& other : day) {
    if (!other.Used()) continue;
    for (const std::int16_t at : {other.start, other.stop})
      if (at > row.start) end = std::min<int>(end, at);
  }
  return end;
}

std::string SentenceOf(const WeekdayRow& row, const std::string& value, std::size_t day,
                       std::size_t place, const SceneWords& words) {
  const LanguageTexts& texts = words.Texts();
  const std::string name = words.DayType(day);
  const std::string where =
      Message(texts.Text(text::kPlaceOfRow), {name, std::to_string(place + 1)});
  if (row.stop == kNoTime) {
    return Message(texts.Text(text::kOpenBarSentence),
                   {name, TimeOfDayText(row.start), value, where});
  }
  return Message(texts.Text(text::kBarSentence),
                 {name, TimeOfDayText(row.start), TimeOfDayText(row.stop), value, where});
}

// Puts bars that overlap into lanes below one another; returns the number of lanes.
std::size_t GiveLanes(std::vector<SceneBar>& bars) {
  std::vector<int> ends;  // of the lanes
  for (SceneBar& bar : bars) {
    auto lane = std::find_if(ends.begin(), ends.end(), [&](int end) { return end <= bar.from; });
    if (lane == ends.end()) lane = ends.insert(ends.end(), 0);
    bar.lane = static_cast<std::size_t>(lane - ends.begin());
    *lane = std::max(bar.to, bar.from + kNarrow);
  }
  return std::max<std::size_t>(ends.size(), 1);
}

}  // namespace

Scene WeekScene(const WeekdayTable& table, std::size_t type, const SceneWords& words) {
  Scene scene;
  scene.title = words.Texts().Text(text::kNoBars);
  scene.note = words.Texts().Text(text::kRowsOnly);
  for (std::size_t column = 0; column < kDaysOfType; ++column) {
    const std::size_t day = type * kDaysOfType + column;
    const Day& rows = table.days.at(day);
    std::vector<SceneBar> bars;
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      const WeekdayRow& each = rows.at(row);
      if (!each.Used()) continue;
      SceneBar bar{column,
                   0,
                   each.start,
                   EndOf(each, rows),
                   type == 0 ? BarKind::Weekday : BarKind::SpecialDay,
                   row,
                   {},
                   {}};
      bar.value = words.Value(each.valueOn);
      bar.sentence = SentenceOf(each, bar.value, day, row, words);
      bars.push_back(bar);
    }
    std::sort(bars.begin(), bars.end(), [](const SceneBar& one, const SceneBar& other) {
      return std::tie(one.from, one.entry) < std::tie(other.from, other.entry);
    });
    scene.rows.push_back({words.DayType(day), GiveLanes(bars)});
    scene.bars.insert(scene.bars.end(), bars.begin(), bars.end());
  }
  return scene;
}

}  // namespace zek
