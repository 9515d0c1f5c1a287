#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include <wx/dc.h>
#include <wx/window.h>

#include "comm/LogPlace.h"
#include "comm/LogSearch.h"
#include "comm/ReplyLog.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// `List_Output`: shows the lines of the log without copying them. Its cost depends on the number
/// of visible lines, not on the number of lines received.
///
/// Lines are marked by dragging, with Shift and the arrow keys or a click, and with Ctrl+A; Ctrl+C
/// copies them. See `LogPlace` for what is shown while lines come.
class LogList final : public wxWindow {
 public:
  /// Longer lines are shortened in the list; the log keeps the whole line.
  static constexpr std::size_t kShownCharacters = 1000;

  LogList(wxWindow* parent, const ReplyLog& log, const LanguageTexts& texts);

  /// Called when the user chose a line, by a click or Enter.
  std::function<void(const std::string& line)> Chosen = [](const std::string&) {};
  /// Called when another part is shown, or when the log or the search is another.
  std::function<void()> Changed = [] {};

  /// Shows the lines that were added since the last call.
  void ShowNew();

  void ShowTimes(bool on);
  bool ShowsTimes() const { return times_; }

  /// Seeks a text and goes to the last line that has it; "" ends the search.
  void Seek(const std::string& what);
  void FindNext();
  void FindPrevious();
  const LogSearch& Search() const { return search_; }

  const LogPlace& Place() const { return place_; }
  void ToEnd();
  void Copy();
  void MarkAll();

  /// The number of lines at the last `ShowNew`.
  std::size_t Count() const { return count_; }
  /// A line as it is shown; `number` counts as in the log.
  wxString ShownLine(std::uint64_t number) const;
  /// The line that the keyboard is at, whole and without its time; "" without lines.
  std::string CurrentLine() const;

 private:
  // The mouse button is down.
  struct Press {
    std::int64_t line = 0;
    std::string chosen;  // by a click, unless the mouse is dragged
    bool dragged = false;
  };

  void BindEvents();
  void OnPaint(wxPaintEvent& event);
  void DrawLine(wxDC& dc, std::uint64_t number, const wxRect& row) const;
  void DrawHits(wxDC& dc, const wxString& line, const wxRect& row) const;
  void OnScroll(wxScrollWinEvent& event);
  void OnWheel(wxMouseEvent& event);
  void OnPress(wxMouseEvent& event);
  void OnDrag(wxMouseEvent& event);
  void OnRelease(wxMouseEvent& event);
  void OnKey(wxKeyEvent& event);
  bool Move(int key, bool extend);
  void OnMenu();
  void Found(std::optional<std::uint64_t> line);
  void Moved();
  void ShowScrollbars();
  void ScrollSideways(int character);
  std::int64_t LineAt(const wxPoint& place) const;
  int RowHeight() const;

  const ReplyLog& log_;
  const LanguageTexts& texts_;
  LogPlace place_;
  LogSearch search_;
  std::uint64_t added_ = 0;     // the log's counter at the last `ShowNew`
  std::uint64_t replaced_ = 0;  // the same
  std::size_t count_ = 0;
  bool times_ = false;
  int widest_ = 0;  // characters of the longest line shown so far
  int left_ = 0;    // the first character that is shown
  int wheel_ = 0;   // what is left of the wheel's turns
  std::optional<Press> press_;
};

}  // namespace zek
