#include "forms/weekday/ZV_WDCPicture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <wx/utils.h>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "picture/WeekScene.h"

namespace zek {
namespace {

constexpr int kStep = 5;   // minutes
constexpr int kReach = 5;  // pixels beside an end
constexpr int kSlack = 4;  // pixels; a click that trembles moves nothing

bool IsEnter(int key) { return key == WXK_RETURN || key == WXK_NUMPAD_ENTER; }

}  // namespace

WeekPicture::WeekPicture(wxWindow* parent, WeekdayEditor& editor, SceneWords words, Parts parts)
    : SceneView(parent, "Picture_Rows",
                [this] {
                  if (Bar()) Choose(*Bar());
                }),
      editor_(editor),
      words_(std::move(words)),
      parts_(std::move(parts)) {
  // Escape would close the form.
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    event.Skip(
        !((key == WXK_ESCAPE && GiveUp()) || (IsEnter(key) && TakeKey(key, event.GetModifiers()))));
  });
  // While the mouse is captured, some systems send only this.
  Bind(wxEVT_KEY_DOWN,
       [this](wxKeyEvent& event) { event.Skip(event.GetKeyCode() != WXK_ESCAPE || !GiveUp()); });
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { GiveUp(); });
  Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
    if (move_ && move_->byMouse) GiveUp();
    event.Skip();
  });
  ShowTable();
}

const WeekdayRow& WeekPicture::RowNow() const {
  return editor_.Table().days.at(editor_.Type() * kDaysOfType + editor_.Column()).at(editor_.Row());
}

void WeekPicture::ShowTable() {
  WeekdayTable table = editor_.Table();
  if (move_) {
    WeekdayRow& row =
        table.days.at(editor_.Type() * kDaysOfType + editor_.Column()).at(editor_.Row());
    (move_->stop ? row.stop : row.start) = static_cast<std::int16_t>(move_->minute);
  }
  ShowScene(WeekScene(table, editor_.Type(), words_));
  const auto& bars = Shown().bars;
  const auto current = std::find_if(bars.begin(), bars.end(), [this](const SceneBar& bar) {
    return bar.row == editor_.Column() && bar.entry == editor_.Row();
  });
  if (current == bars.end()) {
    GoToNoBar(editor_.Column());
  } else {
    GoToBar(static_cast<std::size_t>(current - bars.begin()));
  }
}

// False if something typed is refused. What was typed may change the order of the bars.
bool WeekPicture::Choose(std::size_t bar) {
  const SceneBar chosen = Shown().bars.at(bar);
  if (!parts_.mayBegin()) {
    ShowTable();
    return false;
  }
  editor_.FocusColumn(chosen.row);
  editor_.ShowRow(chosen.entry);
  parts_.chosen();
  return true;
}

// --- Moving an end of the current bar ---

bool WeekPicture::Take(bool stop, bool byMouse) {
  const WeekdayRow row = RowNow();
  if (editor_.ViewOnly() || !row.Used() || (stop && row.stop == kNoTime)) return false;
  const int minute = stop ? row.stop : row.start;
  move_ = {stop, minute, minute, byMouse, byMouse};
  MoveTo(minute);
  return true;
}

// A start stays before its stop, a stop behind its start, where they are so now.
void WeekPicture::MoveTo(int minute) {
  const WeekdayRow& row = RowNow();
  int first = 0;
  int last = kMinutesOfDay;
  if (row.stop > row.start && move_->stop) first = row.start + 1;
  if (row.stop > row.start && !move_->stop) last = row.stop - 1;
  move_->minute = std::clamp(minute, first, last);
  ShowTable();
  const auto& texts = words_.Texts();
  parts_.say(Message(texts.Text(move_->stop ? text::kMovingStop : text::kMovingStart),
                     {TimeOfDayText(move_->minute)}) +
             " " + texts.Text(text::kMoveHint));
}

void WeekPicture::EndMove() {
  if (HasCapture()) ReleaseMouse();
  const Move move = *std::exchange(move_, std::nullopt);
  parts_.say({});
  if (move.minute != move.begin) parts_.moved(move.stop, static_cast<std::int16_t>(move.minute));
  ShowTable();
}

void WeekPicture::FinishMove() {
  if (!move_) return;
  if (move_->byMouse) {
    GiveUp();
  } else {
    EndMove();
  }
}

bool WeekPicture::GiveUp() {
  if (!move_) return false;
  if (HasCapture()) ReleaseMouse();
  move_.reset();
  parts_.say({});
  ShowTable();
  return true;
}

// --- Keyboard ---

bool WeekPicture::TakeKey(int key, int modifiers) {
  if (move_) return TakeMoveKey(key, modifiers);
  if (modifiers == wxMOD_NONE && Bar()) {
    if (key == WXK_SPACE) return parts_.mayBegin() && Take(false, false);
    if (IsEnter(key)) {
      parts_.enter();
      return true;
    }
  }
  return SceneView::TakeKey(key, modifiers);
}

bool WeekPicture::TakeMoveKey(int key, int modifiers) {
  if (move_->byMouse) return true;
  const int step = modifiers == wxMOD_SHIFT ? 1 : kStep;
  if (key == WXK_LEFT || key == WXK_NUMPAD_LEFT) {
    MoveTo(move_->minute - step);
  } else if (key == WXK_RIGHT || key == WXK_NUMPAD_RIGHT) {
    MoveTo(move_->minute + step);
  } else if (IsEnter(key)) {
    EndMove();
  } else if (key == WXK_SPACE) {
    const bool stop = !move_->stop;
    EndMove();
    if (!Take(stop, false)) Take(!stop, false);
  }
  return true;
}

// --- Mouse ---

// Whether the start (false) or the stop (true) of a bar is under the mouse.
std::optional<bool> WeekPicture::StopUnder(std::size_t bar, const wxPoint& at) const {
  const SceneBar& drawn = Shown().bars.at(bar);
  const SceneBox box = Places().Bar(drawn);
  if (at.y < box.y || at.y >= box.y + box.height) return std::nullopt;
  const WeekdayRow& row =
      editor_.Table().days.at(editor_.Type() * kDaysOfType + drawn.row).at(drawn.entry);
  const double reach = std::min(static_cast<double>(FromDIP(kReach)), box.width / 2);
  if (std::abs(at.x - box.x - box.width) <= reach && row.stop != kNoTime) return true;
  if (std::abs(at.x - box.x) <= reach) return false;
  return std::nullopt;
}

// Of several the current bar's, then that of the bar drawn last.
std::optional<WeekPicture::End> WeekPicture::EndUnder(const wxPoint& at) const {
  if (editor_.ViewOnly()) return std::nullopt;
  std::optional<End> found;
  for (std::size_t bar = 0; bar < Shown().bars.size(); ++bar) {
    const auto stop = StopUnder(bar, at);
    if (stop && (!found || found->bar != Bar())) found = End{bar, *stop};
  }
  return found;
}

void WeekPicture::OnPress(const wxPoint& at) {
  if (move_) return FinishMove();
  if (const auto end = EndUnder(at)) {
    pressed_ = at;
    if (Choose(end->bar) && Take(end->stop, true)) CaptureMouse();
  } else if (const auto bar = Places().BarAt(at.x, at.y)) {
    Choose(*bar);
    clicked_ = true;
  }
}

void WeekPicture::OnHover(const wxPoint& at) {
  if (move_ && move_->byMouse) {
    move_->held = move_->held && std::abs(at.x - pressed_.x) < FromDIP(kSlack);
    if (move_->held) return;
    const int step = wxGetKeyState(WXK_SHIFT) ? 1 : kStep;
    const int minute = Places().MinuteAt(at.x);
    return MoveTo((minute + step / 2) / step * step);
  }
  SetCursor(EndUnder(at) ? wxCursor(wxCURSOR_SIZEWE) : wxNullCursor);
}

void WeekPicture::OnRelease(const wxPoint& /*at*/) {
  if (move_ && move_->byMouse) {
    clicked_ = move_->held;
    EndMove();
  }
  if (std::exchange(clicked_, false)) parts_.enter();
}

}  // namespace zek
