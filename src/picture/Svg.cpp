#include "picture/Svg.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "picture/SceneLayout.h"
#include "text/Markup.h"

namespace zek {
namespace {

constexpr double kWidth = 1000;
constexpr double kLabel = 160;
constexpr double kMargin = 12;
constexpr double kTitle = 30;
constexpr double kHourNames = 22;
constexpr double kRow = 32;
constexpr double kFootLine = 24;
constexpr double kCharacter = 7;  // about the width of one
constexpr double kBaseline = 4;   // below the middle of a line
constexpr double kSmallest = 2;
constexpr int kMinutesOfHour = 60;
constexpr int kHours = 24;

std::string Number(double value) {
  const long tenths = std::lround(value * 10);
  return std::to_string(tenths / 10) + "." + std::to_string(std::labs(tenths % 10));
}

std::string Colour(const Rgb& colour) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x", colour.red, colour.green, colour.blue);
  return text.data();
}

// The attributes of an element: ` x="1.0" y="2.0"`.
std::string Attributes(std::initializer_list<std::pair<const char*, std::string>> values) {
  std::string text;
  for (const auto& [name, value] : values) text.append(" ").append(name) += "=\"" + value + "\"";
  return text;
}

std::string Rectangle(const SceneBox& box, const std::string& fill, const Rgb& edge) {
  return "<rect" +
         Attributes({{"x", Number(box.x)},
                     {"y", Number(box.y)},
                     {"width", Number(box.width)},
                     {"height", Number(box.height)},
                     {"fill", fill},
                     {"stroke", Colour(edge)}}) +
         "/>\n";
}

std::string TextAt(double x, double y, const Rgb& colour, const std::string& text,
                   const char* anchor = "start") {
  return "<text" +
         Attributes({{"x", Number(x)},
                     {"y", Number(y + kBaseline)},
                     {"fill", Colour(colour)},
                     {"text-anchor", anchor}}) +
         ">" + MarkupText(text) + "</text>\n";
}

std::string Line(double x, double fromY, double toY, const Rgb& colour, const char* width) {
  return "<line" +
         Attributes({{"x1", Number(x)},
                     {"y1", Number(fromY)},
                     {"x2", Number(x)},
                     {"y2", Number(toY)},
                     {"stroke", Colour(colour)},
                     {"stroke-width", width}}) +
         "/>\n";
}

std::string PatternName(BarKind kind) {
  return "pattern" + std::to_string(static_cast<std::size_t>(kind));
}

std::string Patterns(const Palette& palette, const std::string& ids) {
  std::string text = "<defs>\n";
  for (std::size_t at = 0; at < kBarKinds; ++at) {
    const BarLook& look = palette.bars.at(at);
    if (look.pattern == BarPattern::Plain) continue;
    const bool crossed = look.pattern == BarPattern::Crossed;
    text += "<pattern" +
            Attributes({{"id", ids + PatternName(static_cast<BarKind>(at))},
                        {"width", "8"},
                        {"height", "8"},
                        {"patternUnits", "userSpaceOnUse"}}) +
            R"(><rect width="8" height="8" fill=")" + Colour(look.fill) + "\"/><path" +
            Attributes({{"d", crossed ? "M0 4 H8 M4 0 V8" : "M-2 2 L2 -2 M0 8 L8 0 M6 10 L10 6"},
                        {"stroke", Colour(look.Hatch())},
                        {"stroke-width", "1.5"}}) +
            "/></pattern>\n";
  }
  return text + "</defs>\n";
}

std::string FillOf(BarKind kind, const Palette& palette, const std::string& ids) {
  const BarLook& look = palette.Of(kind);
  return look.pattern == BarPattern::Plain ? Colour(look.fill)
                                           : "url(#" + ids + PatternName(kind) + ")";
}

// With the first of the texts for which it is wide enough.
std::string BarAt(const SceneBox& box, BarKind kind, const std::vector<std::string>& texts,
                  const Palette& palette, const std::string& ids) {
  const BarLook& look = palette.Of(kind);
  std::string text = Rectangle(box, FillOf(kind, palette, ids), look.edge);
  const auto widthOf = [](const std::string& each) {
    return kCharacter * static_cast<double>(each.size()) + kBaseline;
  };
  const auto shown = std::find_if(texts.begin(), texts.end(),
                                  [&](const auto& each) { return widthOf(each) <= box.width; });
  if (shown == texts.end()) return text;
  const double width = widthOf(*shown);
  const double middle = box.x + box.width / 2;
  const SceneBox plain{middle - width / 2, box.y + 2, width, box.height - 4};
  text += Rectangle(plain, Colour(look.fill), look.fill);
  return text + TextAt(middle, box.y + box.height / 2, look.text, *shown, "middle");
}

// Days may have long names.
double LabelWidth(const Scene& scene) {
  std::size_t longest = 0;
  for (const SceneRow& row : scene.rows) longest = std::max(longest, row.label.size());
  return std::clamp(2 * kMargin + kCharacter * static_cast<double>(longest), kLabel, kWidth / 3);
}

class Writer {
 public:
  Writer(const Scene& scene, const Palette& palette, const std::string& ids)
      : scene_(scene),
        palette_(palette),
        ids_(ids),
        label_(LabelWidth(scene)),
        place_{label_, kTitle + kHourNames, kWidth - label_ - kMargin,
               kRow * static_cast<double>(scene.rows.size())},
        layout_(scene, place_, kSmallest) {}

  std::string Document() const {
    const double height = place_.y + place_.height + 2 * kFootLine + kMargin;
    return R"(<?xml version="1.0" encoding="UTF-8"?>)"
           "\n<svg" +
           Attributes({{"xmlns", "http://www.w3.org/2000/svg"},
                       {"width", Number(kWidth)},
                       {"height", Number(height)},
                       {"viewBox", "0 0 " + Number(kWidth) + " " + Number(height)},
                       {"font-family", "sans-serif"},
                       {"font-size", "12"}}) +
           ">\n<title>" + MarkupText(scene_.title) + "</title>\n" + Patterns(palette_, ids_) +
           Rectangle({0, 0, kWidth, height}, Colour(palette_.ground), palette_.ground) +
           TextAt(kMargin, kTitle / 2, palette_.text, scene_.title) + Hours() + Rows() + Bars() +
           Now() + Legend() + "</svg>\n";
  }

 private:
  std::string Hours() const {
    std::string text;
    const double top = place_.y;
    for (int hour = 0; hour <= kHours; ++hour) {
      const double x = layout_.X(hour * kMinutesOfHour);
      const std::string name = (hour < 10 ? "0" : "") + std::to_string(hour);
      text += Line(x, top, top + place_.height, palette_.line, "1") +
              TextAt(x, top - kHourNames / 2, palette_.text, name, "middle");
    }
    return text;
  }
  std::string Rows() const {
    std::string text;
    for (std::size_t row = 0; row < scene_.rows.size(); ++row) {
      const SceneBox box = layout_.Row(row);
      text += TextAt(kMargin, box.y + box.height / 2, palette_.text, scene_.rows[row].label);
    }
    return text;
  }
  std::string Bars() const {
    std::string text;
    for (const SceneBar& bar : scene_.bars) {
      text += "<g><title>" + MarkupText(bar.sentence) + "</title>\n" +
              BarAt(layout_.Bar(bar), bar.kind, scene_.TextsOf(bar), palette_, ids_) + "</g>\n";
    }
    return text;
  }
  std::string Now() const {
    if (!scene_.now) return {};
    const SceneBox row = layout_.Row(scene_.now->row);
    const double x = layout_.X(scene_.now->minute);
    return "<g><title>" + MarkupText(scene_.nowLabel) + "</title>\n" +
           Line(x, row.y, row.y + row.height, palette_.ground, "9") +
           Line(x, row.y, row.y + row.height, palette_.now, "3") + "</g>\n";
  }
  std::string Legend() const {
    std::string text;
    const double middle = place_.y + place_.height + kFootLine / 2 + kBaseline;
    double x = kMargin;
    for (std::size_t kind = 0; kind < kBarKinds; ++kind) {
      const std::string& name = scene_.kinds.at(kind);
      text += BarAt({x, middle - kFootLine / 3, kFootLine, kFootLine * 2 / 3},
                    static_cast<BarKind>(kind), {scene_.LetterOf(kind)}, palette_, ids_) +
              TextAt(x + kFootLine + kMargin, middle, palette_.text, name);
      x += kFootLine + 3 * kMargin + kCharacter * static_cast<double>(name.size());
    }
    return text + TextAt(kMargin, middle + kFootLine, palette_.text, scene_.note);
  }

  const Scene& scene_;
  const Palette& palette_;
  const std::string& ids_;
  double label_;
  SceneBox place_;
  SceneLayout layout_;
};

}  // namespace

std::string SvgOf(const Scene& scene, const Palette& palette, const std::string& ids) {
  return Writer(scene, palette, ids).Document();
}

}  // namespace zek
