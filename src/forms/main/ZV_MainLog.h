#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <wx/listctrl.h>

#include "comm/ReplyLog.h"

namespace zek {

/// `List_Output`: shows the lines of the log without copying them. Its cost depends on the number
/// of visible lines, not on the number of lines received.
class LogList final : public wxListView {
 public:
  /// Longer lines are shortened in the list; the log keeps the whole line.
  static constexpr std::size_t kShownCharacters = 1000;

  LogList(wxWindow* parent, const ReplyLog& log);

  /// Shows the lines added since the last call and selects the newest.
  void ShowNew();

  /// The whole text of a line; "" if the index is out of range.
  std::string Line(long item) const;
  std::string SelectedLine() const { return Line(GetFirstSelected()); }

 private:
  wxString OnGetItemText(long item, long column) const override;
  void FitColumn();

  const ReplyLog& log_;
  std::uint64_t added_ = 0;     // the log's counter at the last `ShowNew`
  std::uint64_t replaced_ = 0;  // the same
  std::size_t widest_ = 0;      // characters of the longest line shown so far
};

}  // namespace zek
