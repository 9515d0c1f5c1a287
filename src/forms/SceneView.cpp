#include "forms/SceneView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include "ui/AccessibleName.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kPadding = 4;
constexpr int kFrame = 3;
constexpr int kRowPadding = 2;    // the weekday editor must fit on a screen of 800 x 600
constexpr int kMostOfLabels = 3;  // their share of the width: a third at most
constexpr int kSmallest = 6;      // of a bar without length
constexpr int kMinutesOfHour = 60;
constexpr int kHours = 24;

wxColour ToColour(const Rgb& colour) { return {colour.red, colour.green, colour.blue}; }

const Palette& PaletteNow() {
  const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  return IsLight({ground.Red(), ground.Green(), ground.Blue()}) ? LightPalette() : DarkPalette();
}

wxRect ToRect(const SceneBox& box) {
  const auto left = static_cast<int>(std::lround(box.x));
  const auto top = static_cast<int>(std::lround(box.y));
  return {left, top, static_cast<int>(std::lround(box.x + box.width)) - left,
          static_cast<int>(std::lround(box.y + box.height)) - top};
}

}  // namespace

struct SceneView::Ink {
  const Palette& palette;
  SceneLayout layout;
};

SceneView::SceneView(wxWindow* parent, const std::string& name, std::function<void()> moved)
    : wxControl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      moved_(std::move(moved)) {
  SetName(name);
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, &SceneView::OnPaint, this);
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    SetFocus();
    OnPress(event.GetPosition());
  });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) { OnHover(event.GetPosition()); });
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) { OnRelease(event.GetPosition()); });
  // Not the style wxWANTS_CHARS, with which Windows keeps Alt and a letter from the buttons.
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const bool plain = (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
    if (plain && event.GetKeyCode() == WXK_TAB) {
      Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                 : wxNavigationKeyEvent::IsForward);
    } else if (!plain || !TakeKey(event.GetKeyCode(), event.GetModifiers())) {
      event.Skip();
    }
  });
  const auto refresh = [this](wxFocusEvent& event) {
    Refresh();
    event.Skip();
  };
  Bind(wxEVT_SET_FOCUS, refresh);
  Bind(wxEVT_KILL_FOCUS, refresh);
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    Refresh();
    event.Skip();
  });
}

void SceneView::ShowScene(Scene scene) {
  scene_ = std::move(scene);
  InvalidateBestSize();
  if (point_.row >= scene_.rows.size()) point_ = {};
  GoTo(point_);
}

void SceneView::ShowNow(std::optional<ScenePoint> now) {
  scene_.now = now;
  Refresh();
}

void SceneView::GoTo(ScenePoint point) {
  point_ = point;
  bar_ = scene_.BarAt(point);
  Speak();
  Refresh();
}

void SceneView::GoToBar(std::size_t bar) {
  const SceneBar& to = scene_.bars.at(bar);
  point_ = {to.row, to.from};
  bar_ = bar;
  Speak();
  Refresh();
}

void SceneView::GoToNoBar(std::size_t row) {
  point_ = {row, 0};
  bar_.reset();
  Speak();
  Refresh();
}

void SceneView::Speak() {
  SetAccessibleName(*this, ToWx(bar_ ? scene_.bars.at(*bar_).sentence : scene_.title));
}

void SceneView::Moved() {
  if (moved_) moved_();
}

// --- Keyboard and mouse ---

bool SceneView::TakeKey(int key, int modifiers) {
  if (modifiers != wxMOD_NONE || scene_.bars.empty()) return false;
  const std::size_t last = scene_.bars.size() - 1;
  const std::size_t now = bar_.value_or(0);
  switch (key) {
    case WXK_LEFT:
    case WXK_NUMPAD_LEFT:
      GoToBar(now == 0 ? 0 : now - 1);
      break;
    case WXK_RIGHT:
    case WXK_NUMPAD_RIGHT:
      GoToBar(bar_ ? std::min(now + 1, last) : 0);
      break;
    case WXK_HOME:
    case WXK_NUMPAD_HOME:
      GoToBar(0);
      break;
    case WXK_END:
    case WXK_NUMPAD_END:
      GoToBar(last);
      break;
    case WXK_UP:
    case WXK_NUMPAD_UP:
      GoToRow(-1);
      break;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
      GoToRow(1);
      break;
    default:
      return false;
  }
  Moved();
  return true;
}

// Goes to the next row with a bar, there to the one nearest to the current minute.
void SceneView::GoToRow(int step) {
  std::optional<std::size_t> nearest;
  const auto row = static_cast<int>(point_.row);
  int rowOfNearest = 0;
  int distance = 0;
  for (std::size_t at = 0; at < scene_.bars.size(); ++at) {
    const SceneBar& bar = scene_.bars[at];
    const int away = (static_cast<int>(bar.row) - row) * step;
    const int off = std::max({bar.from - point_.minute, point_.minute - bar.to + 1, 0});
    if (away <= 0) continue;
    if (nearest && (away > rowOfNearest || (away == rowOfNearest && off >= distance))) continue;
    nearest = at;
    rowOfNearest = away;
    distance = off;
  }
  if (!nearest) return;
  const SceneBar& bar = scene_.bars.at(*nearest);
  point_ = {bar.row, std::clamp(point_.minute, bar.from, std::max(bar.to - 1, bar.from))};
  bar_ = nearest;
  Speak();
  Refresh();
}

void SceneView::OnPress(const wxPoint& at) { OnHover(at); }

void SceneView::OnHover(const wxPoint& at) {
  const auto point = Places().PointAt(at.x, at.y);
  if (!point || *point == point_) return;
  GoTo(*point);
  Moved();
}

// --- Drawing ---

wxSize SceneView::DoGetBestClientSize() const {
  const int line = GetCharHeight();
  const auto rows = static_cast<int>(scene_.rows.size());
  const int feet = (scene_.kinds.front().empty() ? 0 : 1) + (scene_.note.empty() ? 0 : 1);
  constexpr int narrowest = 420;
  return {FromDIP(narrowest),
          (rows + 1 + feet) * (line + 2 * FromDIP(kRowPadding)) + FromDIP(kPadding)};
}

wxRect SceneView::RowsPlace() const {
  const int padding = FromDIP(kPadding);
  const int line = GetCharHeight() + 2 * FromDIP(kRowPadding);
  int label = 0;
  for (const SceneRow& row : scene_.rows) label = std::max(label, GetTextExtent(ToWx(row.label)).x);
  const int feet = (scene_.kinds.front().empty() ? 0 : 1) + (scene_.note.empty() ? 0 : 1);
  const wxSize whole = GetClientSize();
  const int left = std::min(label, whole.x / kMostOfLabels) + 2 * padding;
  const int right = 2 * padding + GetTextExtent("24").x / 2;
  return {left, line, std::max(whole.x - left - right, 1),
          std::max(whole.y - line * (1 + feet) - padding, 1)};
}

SceneLayout SceneView::Places() const {
  const wxRect rows = RowsPlace();
  return {scene_,
          {static_cast<double>(rows.x), static_cast<double>(rows.y),
           static_cast<double>(rows.width), static_cast<double>(rows.height)},
          static_cast<double>(FromDIP(kSmallest))};
}

void SceneView::OnPaint(wxPaintEvent& /*event*/) {
  wxAutoBufferedPaintDC dc(this);
  const Ink ink{PaletteNow(), Places()};
  dc.SetFont(GetFont());
  dc.SetBackground(ToColour(ink.palette.ground));
  dc.Clear();
  DrawFrame(dc, ink);
  for (std::size_t bar = 0; bar < scene_.bars.size(); ++bar)
    if (bar != bar_) DrawBar(dc, ink, bar);
  if (bar_) DrawBar(dc, ink, *bar_);
  if (scene_.now) {
    const wxRect row = ToRect(ink.layout.Row(scene_.now->row));
    const int x = static_cast<int>(std::lround(ink.layout.X(scene_.now->minute)));
    // With the ground on both sides: it may stand on a bar of about its brightness.
    for (const auto& [colour, width] :
         {std::pair(ink.palette.ground, 3 * kFrame), std::pair(ink.palette.now, kFrame)}) {
      dc.SetPen(wxPen(ToColour(colour), FromDIP(width)));
      dc.DrawLine(x, row.GetTop(), x, row.GetBottom());
    }
  }
  DrawFoot(dc, ink);
}

void SceneView::DrawFrame(wxDC& dc, const Ink& ink) const {
  const wxRect rows = RowsPlace();
  dc.SetTextForeground(ToColour(ink.palette.text));
  dc.SetPen(ToColour(ink.palette.line));
  const int names = ink.layout.HoursBetweenNames(GetTextExtent("00").x + 2.0 * FromDIP(kPadding));
  for (int hour = 0; hour <= kHours; ++hour) {
    const int x = static_cast<int>(std::lround(ink.layout.X(hour * kMinutesOfHour)));
    dc.DrawLine(x, rows.GetTop(), x, rows.GetBottom());
    if (hour % names != 0) continue;
    const wxString name = wxString::Format("%02d", hour);
    dc.DrawText(name, x - dc.GetTextExtent(name).x / 2, FromDIP(kRowPadding));
  }
  for (std::size_t row = 0; row < scene_.rows.size(); ++row) {
    wxRect place = ToRect(ink.layout.Row(row));
    dc.DrawLine(place.GetLeft(), place.GetTop(), place.GetRight(), place.GetTop());
    place.x = FromDIP(kPadding);
    dc.DrawLabel(wxControl::Ellipsize(ToWx(scene_.rows[row].label), dc, wxELLIPSIZE_END,
                                      rows.x - 2 * place.x),
                 place, wxALIGN_CENTER_VERTICAL);
  }
}

void SceneView::DrawBar(wxDC& dc, const Ink& ink, std::size_t bar) const {
  const SceneBar& drawn = scene_.bars.at(bar);
  const wxRect place = ToRect(ink.layout.Bar(drawn));
  DrawChip(dc, ink, place, drawn.kind, scene_.TextsOf(drawn));
  if (bar != bar_) return;
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.SetPen(wxPen(ToColour(ink.palette.current), FromDIP(HasFocus() ? kFrame : kFrame - 1)));
  dc.DrawRectangle(wxRect(place).Inflate(FromDIP(1)));
}

// A bar with the first of the texts for which there is room.
void SceneView::DrawChip(wxDC& dc, const Ink& ink, const wxRect& place, BarKind kind,
                         const std::vector<std::string>& texts) const {
  const BarLook& look = ink.palette.Of(kind);
  dc.SetPen(ToColour(look.edge));
  dc.SetBrush(ToColour(look.fill));
  dc.DrawRectangle(place);
  if (look.pattern != BarPattern::Plain) {
    dc.SetBrush(wxBrush(ToColour(look.Hatch()), look.pattern == BarPattern::Diagonal
                                                    ? wxBRUSHSTYLE_BDIAGONAL_HATCH
                                                    : wxBRUSHSTYLE_CROSS_HATCH));
    dc.DrawRectangle(place);
  }
  const auto shown = std::find_if(texts.begin(), texts.end(), [&](const std::string& each) {
    return dc.GetTextExtent(ToWx(each)).x + 4 <= place.width;
  });
  if (shown == texts.end()) return;
  const wxString text = ToWx(*shown);
  const wxSize extent = dc.GetTextExtent(text);
  const wxRect plain =
      wxRect(extent).Inflate(2, 0).CenterIn(place).Intersect(wxRect(place).Deflate(1));
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(ToColour(look.fill));
  dc.DrawRectangle(plain);
  dc.SetTextForeground(ToColour(look.text));
  dc.DrawLabel(text, place, wxALIGN_CENTER);
}

void SceneView::DrawFoot(wxDC& dc, const Ink& ink) const {
  const int padding = FromDIP(kPadding);
  const int line = GetCharHeight() + 2 * FromDIP(kRowPadding);
  int y = RowsPlace().GetBottom() + padding;
  if (!scene_.kinds.front().empty()) {
    int x = padding;
    for (std::size_t kind = 0; kind < kBarKinds; ++kind) {
      const wxString name = ToWx(scene_.kinds.at(kind));
      DrawChip(dc, ink, {x, y + 1, 2 * line, line - 2}, static_cast<BarKind>(kind),
               {scene_.LetterOf(kind)});
      x += 2 * line + padding;
      dc.SetTextForeground(ToColour(ink.palette.text));
      dc.DrawText(name, x, y + FromDIP(kRowPadding));
      x += dc.GetTextExtent(name).x + 4 * padding;
    }
    y += line;
  }
  dc.SetTextForeground(ToColour(ink.palette.text));
  const wxString note =
      wxControl::Ellipsize(ToWx(scene_.note), dc, wxELLIPSIZE_END, GetClientSize().x - 2 * padding);
  dc.DrawText(note, padding, y + FromDIP(kRowPadding));
}

}  // namespace zek
