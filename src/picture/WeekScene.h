#pragma once

#include <cstddef>

#include "formats/WeekdayTable.h"
#include "picture/Scene.h"
#include "picture/SceneWords.h"

namespace zek {

/// Lays out the seven days of a type (0 Monday to Sunday, 1 SD1 to SD7) of a weekday table: a bar
/// for each row in use. It shows the table as it stands, not what applies. A row without a stop
/// lasts until the next start or stop of its day; one that stops before its start has no length.
Scene WeekScene(const WeekdayTable& table, std::size_t type, const SceneWords& words);

}  // namespace zek
