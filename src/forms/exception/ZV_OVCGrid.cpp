#include "forms/exception/ZV_OVCGrid.h"

#include <utility>

#include <wx/settings.h>
#include <wx/sizer.h>

#include "lang/TextNumbers.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 4;
constexpr std::size_t kHint = 10;
constexpr std::size_t kRowLabel = 1;

// A kind of box: its name, its width as a sample text, and the two lines of its heading as indexes
// into `Label_Info`.
struct Kind {
  const char* name;
  const char* widest;
  EntryGrid::BoxKind kind;
  std::size_t group;
  std::size_t heading;
};
using enum EntryGrid::BoxKind;
constexpr std::array<Kind, kExceptionBoxes> kKinds{{{"Text_DateOn", "2026-12-24 ", Date, 6, 9},
                                                    {"Text_Start", "00:00 ", Time, 6, 5},
                                                    {"Text_ValueOn", "-1234.567 ", Value, 6, 8},
                                                    {"Text_DateOff", "2026-12-24 ", Date, 7, 4},
                                                    {"Text_Stop", "00:00 ", Time, 7, 3},
                                                    {"Text_ValueOff", "-1234.567 ", Value, 7, 2}}};

// The text numbers of `Label_Info`(0) to (10).
constexpr std::array<int, 11> kLabelTexts{
    text::kExceptionCaption + 5, text::kRowHeading,           text::kExceptionCaption + 4,
    text::kTimeHeading,          text::kExceptionCaption + 3, text::kTimeHeading,
    text::kExceptionCaption + 1, text::kExceptionCaption + 2, text::kExceptionCaption + 4,
    text::kExceptionCaption + 3, text::kExceptionCaption};

// Joins "Start-" and "datum" into one word, "Start" and "date" into two.
void JoinHeading(wxStaticText& group, wxStaticText& heading) {
  wxString name = group.GetLabel();
  if (!name.EndsWith("-", &name)) name += " ";
  heading.SetLabel(name + heading.GetLabel());
  group.Hide();
}

}  // namespace

OvcGrid::OvcGrid(wxWindow* parent, ExceptionEditor& editor, Parts parts)
    : EntryGrid(parent, std::move(parts), kExceptionBoxes), editor_(editor) {
  BuildLabels();
  BuildBoxes();
  LayOut();
  ShowRows();
}

void OvcGrid::BuildLabels() {
  for (std::size_t i = 0; i < kLabels; ++i) {
    Label_Info.at(i) = new wxStaticText(this, wxID_ANY, ToWx(Texts().Text(kLabelTexts.at(i))));
    Label_Info.at(i)->SetName("Label_Info" + std::to_string(i));
  }
  Label_Info[0]->Hide();  // repeats the erase button's caption
  for (const Kind& kind : kKinds)
    JoinHeading(*Label_Info.at(kind.group), *Label_Info.at(kind.heading));
}

// Created row by row, because that sets the order of the Tab key.
void OvcGrid::BuildBoxes() {
  for (std::size_t row = 0; row < kExceptionRows; ++row) {
    auto*& label = rowLabels_.at(row);
    label = new wxStaticText(this, wxID_ANY, std::to_string(row + 1), wxDefaultPosition,
                             wxDefaultSize, wxALIGN_CENTRE_HORIZONTAL);
    label->SetName("Label_Row" + std::to_string(row));
    for (const Kind& kind : kKinds)
      NewBox(kind.name + std::to_string(row), kind.widest, kind.kind, !editor_.ViewOnly());
    NameBoxes(row);
  }
}

void OvcGrid::NameBoxes(std::size_t row) {
  for (std::size_t i = 0; i < kExceptionBoxes; ++i) {
    const wxString name =
        Label_Info.at(kKinds.at(i).heading)->GetLabel() + " " + std::to_string(row + 1);
    Box(NumberOf({static_cast<ExceptionBox>(i), row})).SetSpokenName(name);
  }
}

void OvcGrid::LayOut() {
  constexpr int headings = 1;
  constexpr int stopColumn = 5;  // column 4 separates start and stop
  const int gap = FromDIP(kGap);
  auto* const cells = new wxGridBagSizer(gap, gap);
  cells->Add(Label_Info[kRowLabel], {0, 0}, {1, 1}, wxRIGHT, gap);
  cells->Add(2 * gap, 0, wxGBPosition(0, 4));
  for (int i = 0; i < static_cast<int>(kExceptionBoxes); ++i) {
    const int column = i < 3 ? 1 + i : stopColumn + i - 3;
    const auto place = static_cast<std::size_t>(i);
    cells->Add(Label_Info.at(kKinds.at(place).heading), {0, column});
    for (int row = 0; row < static_cast<int>(kExceptionRows); ++row)
      cells->Add(&Box(NumberOf({static_cast<ExceptionBox>(i), static_cast<std::size_t>(row)})),
                 {headings + row, column}, {1, 1}, wxEXPAND);
    cells->AddGrowableCol(static_cast<std::size_t>(column), 1);
  }
  for (int row = 0; row < static_cast<int>(kExceptionRows); ++row)
    cells->Add(rowLabels_.at(static_cast<std::size_t>(row)), {headings + row, 0}, {1, 1},
               wxALIGN_CENTER_VERTICAL | wxEXPAND | wxRIGHT, gap);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(cells, 0, wxEXPAND | wxBOTTOM, 2 * gap);
  whole->Add(Label_Info[kHint]);
  SetSizer(whole);
}

std::optional<EntryGrid::Lead> OvcGrid::LeadOf(std::size_t box) const {
  const auto first = editor_.FirstBox(At(box));
  if (!first) return std::nullopt;
  return Lead{NumberOf(*first),
              first->box == ExceptionBox::DateOn ? text::kDateFirst : text::kStopDateFirst};
}

std::optional<Refusal> OvcGrid::EnterText(std::size_t box, const std::string& typed) {
  return editor_.Enter(At(box), typed);
}

bool OvcGrid::TakeKey(int key) {
  if (key != WXK_RETURN && key != WXK_NUMPAD_ENTER) return false;
  const auto box = FocusedBox();
  if (!box) return false;
  if (TakeEntry()) Focus(NextFocus(At(*box)));
  return true;
}

void OvcGrid::OnEntered(std::size_t box) {
  last_ = At(box);
  editor_.FocusRow(last_.row);
  if (marked_ == last_.row) return;
  // The mark stays while a button has the focus, because the buttons act on the marked row.
  if (marked_) MarkLabel(*rowLabels_.at(*marked_), false);
  MarkLabel(*rowLabels_.at(last_.row), true);
  marked_ = last_.row;
}

}  // namespace zek
