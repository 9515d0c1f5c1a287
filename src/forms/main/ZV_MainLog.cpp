#include "forms/main/ZV_MainLog.h"

#include <algorithm>

#include "text/Lines.h"
#include "ui/Forms.h"
#include "ui/WxText.h"

namespace zek {

LogList::LogList(wxWindow* parent, const ReplyLog& log)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxLC_NO_HEADER | wxLC_SINGLE_SEL | wxBORDER_THEME),
      log_(log) {
  SetFont(FixedFont());
  AppendColumn({});
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    FitColumn();
    event.Skip();
  });
}

void LogList::ShowNew() {
  if (added_ == log_.Added() && replaced_ == log_.Replaced()) return;
  const auto& lines = log_.Lines();
  if (replaced_ != log_.Replaced()) widest_ = 0;
  const bool all = replaced_ != log_.Replaced() || log_.Added() - added_ > lines.size();
  const std::size_t fresh = all ? lines.size() : static_cast<std::size_t>(log_.Added() - added_);
  added_ = log_.Added();
  replaced_ = log_.Replaced();
  std::for_each(lines.end() - static_cast<std::ptrdiff_t>(fresh), lines.end(),
                [this](const std::string& line) { widest_ = std::max(widest_, line.size()); });
  const auto count = static_cast<long>(lines.size());
  SetItemCount(count);
  FitColumn();
  if (count > 0) {
    Select(count - 1);
    Focus(count - 1);
  }
  Refresh();
}

std::string LogList::Line(long item) const {
  const auto& lines = log_.Lines();
  const bool there = item >= 0 && static_cast<std::size_t>(item) < lines.size();
  return there ? lines[static_cast<std::size_t>(item)] : std::string();
}

// The log may have become shorter since the last `ShowNew`.
wxString LogList::OnGetItemText(long item, long /*column*/) const {
  const auto& lines = log_.Lines();
  if (item < 0 || static_cast<std::size_t>(item) >= lines.size()) return {};
  return ToWx(Shortened(lines[static_cast<std::size_t>(item)], kShownCharacters));
}

// As wide as the longest line, so that the list scrolls sideways only as far as needed.
void LogList::FitColumn() {
  const std::size_t characters = std::min(widest_, kShownCharacters) + 2;
  const int width = std::max(GetClientSize().x, static_cast<int>(characters) * GetCharWidth());
  if (GetColumnCount() > 0 && GetColumnWidth(0) != width) SetColumnWidth(0, width);
}

}  // namespace zek
