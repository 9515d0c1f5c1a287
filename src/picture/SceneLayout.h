#pragma once

#include <optional>

#include "picture/Scene.h"

namespace zek {

/// A place in a picture, in its units: pixels from the upper left corner.
struct SceneBox {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  bool Has(double px, double py) const {
    return px >= x && px < x + width && py >= y && py < y + height;
  }
};

/// Where the rows and bars of a scene are: a column with the labels at the left, the names of the
/// hours above, and the rows below one another.
class SceneLayout {
 public:
  /// `rows` is the place of the rows, right of their labels and below the hours. `smallest` is the
  /// width of a bar without length.
  SceneLayout(const Scene& scene, const SceneBox& rows, double smallest)
      : scene_(scene), rows_(rows), smallest_(smallest) {}

  double X(int minute) const { return rows_.x + rows_.width * minute / kMinutesOfDay; }
  SceneBox Row(std::size_t row) const;
  SceneBox Bar(const SceneBar& bar) const;

  /// Returns the minute under a place, 0 to 1439; nothing outside of the rows.
  std::optional<ScenePoint> PointAt(double x, double y) const;

  /// Returns the minute of a place in any row, 0 to `kMinutesOfDay`.
  int MinuteAt(double x) const;

  /// Returns the bar under a place.
  std::optional<std::size_t> BarAt(double x, double y) const;

  /// Returns how many hours apart (1, 2, 3, 6 or 12) their names fit, with `width` for each.
  int HoursBetweenNames(double width) const;

 private:
  const Scene& scene_;
  SceneBox rows_;
  double smallest_;
};

}  // namespace zek
