#include "picture/SceneLayout.h"

#include <algorithm>
#include <cmath>

namespace zek {
namespace {

constexpr double kGapShare = 0.12;  // of a row, above and below its bars
constexpr double kBetween = 2;      // of the ground, so that equal neighbours are told apart
constexpr int kHours = 24;

}  // namespace

SceneBox SceneLayout::Row(std::size_t row) const {
  const double height =
      rows_.height / static_cast<double>(std::max<std::size_t>(scene_.rows.size(), 1));
  return {rows_.x, rows_.y + height * static_cast<double>(row), rows_.width, height};
}

SceneBox SceneLayout::Bar(const SceneBar& bar) const {
  const SceneBox row = Row(bar.row);
  const auto lanes = static_cast<double>(std::max<std::size_t>(scene_.rows.at(bar.row).lanes, 1));
  const double gap = row.height * kGapShare;
  const double height = (row.height - 2 * gap) / lanes;
  const double right = rows_.x + rows_.width;
  const double width = std::max(X(bar.to) - X(bar.from) - kBetween, smallest_);
  return {std::min(X(bar.from), right - width),
          row.y + gap + height * static_cast<double>(bar.lane), width, height};
}

int SceneLayout::MinuteAt(double x) const {
  const double minute = rows_.width <= 0 ? 0 : (x - rows_.x) * kMinutesOfDay / rows_.width;
  return static_cast<int>(std::clamp(std::floor(minute), 0.0, double{kMinutesOfDay}));
}

std::optional<ScenePoint> SceneLayout::PointAt(double x, double y) const {
  for (std::size_t row = 0; row < scene_.rows.size(); ++row) {
    if (Row(row).Has(x, y)) return ScenePoint{row, std::min(MinuteAt(x), kMinutesOfDay - 1)};
  }
  return std::nullopt;
}

std::optional<std::size_t> SceneLayout::BarAt(double x, double y) const {
  std::optional<std::size_t> found;
  for (std::size_t bar = 0; bar < scene_.bars.size(); ++bar)
    if (Bar(scene_.bars[bar]).Has(x, y)) found = bar;
  return found;
}

int SceneLayout::HoursBetweenNames(double width) const {
  for (const int hours : {1, 2, 3, 6})
    if (rows_.width * hours / kHours >= width) return hours;
  return kHours / 2;
}

}  // namespace zek
