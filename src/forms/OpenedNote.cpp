#include "forms/OpenedNote.h"

#include <utility>

#include "ui/WxText.h"

namespace zek {
namespace {
constexpr int kMilliseconds = 1000;
const wxColour kAmber(255, 213, 79);
}  // namespace

OpenedNote::OpenedNote(wxWindow* parent, ZV_Proc& proc, CatalogueId id, bool edits)
    : wxStaticText(parent, wxID_ANY, {}), marks_(proc.marks), id_(std::move(id)) {
  SetName("Label_Opened");
  SetBackgroundColour(kAmber);
  SetForegroundColour(*wxBLACK);
  Hide();
  if (edits) marks_.Open(id_);
  Look();
  timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
    marks_.Refresh(id_);
    Look();
  });
  timer_.Start(OpenMarks::kRefreshSeconds * kMilliseconds);
}

void OpenedNote::End() {
  if (std::exchange(ended_, true)) return;
  timer_.Stop();
  marks_.Close(id_);
}

void OpenedNote::Look() {
  const wxString others = ToWx(marks_.OthersAt(id_));
  const bool changed = others != GetLabelText();
  if (changed) SetLabelText(others);
  if (Show(!others.empty()) || changed) GetParent()->Layout();
}

}  // namespace zek
