#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <wx/listctrl.h>

#include "comm/ReplyLog.h"

namespace zek {

/// `List_Output`: shows the lines of the log without a copy of its own, so that its cost is that
/// of the lines on the screen however many come in.
class LogList final : public wxListView {
 public:
  /// Of longer lines only the beginning is shown; the log keeps them whole.
  static constexpr std::size_t kShownCharacters = 1000;

  LogList(wxWindow* parent, const ReplyLog& log);

  /// Catches up with the log and selects its newest line.
  void ShowNew();

  /// A line of the list, whole; "" when there is none.
  std::string Line(long item) const;
  std::string SelectedLine() const { return Line(GetFirstSelected()); }

 private:
  wxString OnGetItemText(long item, long column) const override;
  void FitColumn();

  const ReplyLog& log_;
  std::uint64_t added_ = 0;     // of the log, as shown
  std::uint64_t replaced_ = 0;  // the same
  std::size_t widest_ = 0;      // characters of the longest line shown so far
};

}  // namespace zek
