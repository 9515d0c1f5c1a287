#pragma once

#include <optional>

#include "picture/Scene.h"
#include "picture/SceneWords.h"

namespace zek {

/// The longest time that one picture shows, in days.
inline constexpr int kLongestScene = 31;

/// Lays out what applies from `from` up to `to`: a row for each date, a bar for each stretch of it.
/// `now` is marked where it is on one of the dates.
Scene ForecastScene(const Forecast& forecast, const Schedule& schedule, Moment from, Moment to,
                    std::optional<Moment> now, const SceneWords& words);

/// Says in every picture what its bars are and that the rule is assumed.
void Explain(Scene& scene, const LanguageTexts& texts);

}  // namespace zek
