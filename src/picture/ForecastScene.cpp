#include "picture/ForecastScene.h"

#include <algorithm>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

// The bar of one stretch on one date.
SceneBar BarOf(const Stretch& stretch, DayNumber day, const Schedule& schedule,
               const SceneWords& words) {
  SceneBar bar;
  bar.from = static_cast<int>(std::max(stretch.from, StartOf(day)) - StartOf(day));
  bar.to = static_cast<int>(std::min(stretch.to, StartOf(day + 1)) - StartOf(day));
  bar.kind = KindOf(stretch.applied.source, schedule);
  bar.value = words.Value(stretch.applied.value);
  bar.sentence = Message(words.Texts().Text(text::kBarSentence),
                         {words.Day(day), TimeOfDayText(bar.from), TimeOfDayText(bar.to), bar.value,
                          words.Source(stretch.applied.source, schedule)});
  return bar;
}

std::string LabelOf(DayNumber day, const Forecast& forecast, const SceneWords& words) {
  const DatedType* const entry = forecast.Types().EntryOf(day);
  return words.Day(day) + (entry == nullptr ? std::string() : " " + words.DayType(entry->type));
}

}  // namespace

Scene ForecastScene(const Forecast& forecast, const Schedule& schedule, Moment from, Moment to,
                    std::optional<Moment> now, const SceneWords& words) {
  Scene scene;
  const DayNumber first = DayOf(from);
  const DayNumber last = DayOf(to - 1);
  for (DayNumber day = first; day <= last; ++day)
    scene.rows.push_back({LabelOf(day, forecast, words)});
  for (const Stretch& stretch : forecast.Timeline(from, to)) {
    for (DayNumber day = DayOf(stretch.from); day <= DayOf(stretch.to - 1); ++day) {
      scene.bars.push_back(BarOf(stretch, day, schedule, words));
      scene.bars.back().row = static_cast<std::size_t>(day - first);
    }
  }
  if (now && DayOf(*now) >= first && DayOf(*now) <= last)
    scene.now = {static_cast<std::size_t>(DayOf(*now) - first), TimeOfDay(*now)};
  Explain(scene, words.Texts());
  return scene;
}

void Explain(Scene& scene, const LanguageTexts& texts) {
  for (std::size_t kind = 0; kind < kBarKinds; ++kind)
    scene.kinds.at(kind) = texts.Text(text::kByWeekday + static_cast<std::int32_t>(kind));
  scene.letters = texts.Text(text::kBarLetters);
  scene.nowLabel = texts.Text(text::kMomentNow);
  scene.note = texts.Text(text::kRuleAssumed);
}

}  // namespace zek
