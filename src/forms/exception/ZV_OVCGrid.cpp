#include "forms/exception/ZV_OVCGrid.h"

#include <utility>

#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include "forms/ZV_PickList.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/EntryBox.h"
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
  std::size_t group;
  std::size_t heading;
};
constexpr std::array<Kind, kExceptionBoxes> kKinds{{{"Text_DateOn", "2026-12-24 ", 6, 9},
                                                    {"Text_Start", "00:00 ", 6, 5},
                                                    {"Text_ValueOn", "-1234.567 ", 6, 8},
                                                    {"Text_DateOff", "2026-12-24 ", 7, 4},
                                                    {"Text_Stop", "00:00 ", 7, 3},
                                                    {"Text_ValueOff", "-1234.567 ", 7, 2}}};

// The text numbers of `Label_Info`(0) to (10).
constexpr std::array<int, 11> kLabelTexts{
    text::kExceptionCaption + 5, text::kRowHeading,           text::kExceptionCaption + 4,
    text::kTimeHeading,          text::kExceptionCaption + 3, text::kTimeHeading,
    text::kExceptionCaption + 1, text::kExceptionCaption + 2, text::kExceptionCaption + 4,
    text::kExceptionCaption + 3, text::kExceptionCaption};

const Kind& KindOf(ExceptionBox box) { return kKinds.at(static_cast<std::size_t>(box)); }

bool IsValue(ExceptionBox box) {
  return box == ExceptionBox::ValueOn || box == ExceptionBox::ValueOff;
}

}  // namespace

OvcGrid::OvcGrid(wxWindow* parent, ExceptionEditor& editor, Parts parts)
    : wxPanel(parent), editor_(editor), parts_(std::move(parts)) {
  BuildLabels();
  BuildBoxes();
  LayOut();
  for (std::size_t row = 0; row < kExceptionRows; ++row) ShowRow(row);
}

void OvcGrid::BuildLabels() {
  for (std::size_t i = 0; i < kLabels; ++i) {
    Label_Info.at(i) = new wxStaticText(this, wxID_ANY, ToWx(parts_.texts.Text(kLabelTexts.at(i))));
    Label_Info.at(i)->SetName("Label_Info" + std::to_string(i));
  }
  Label_Info[0]->Hide();  // repeats the erase button's caption
}

// Created row by row, because that sets the order of the Tab key.
void OvcGrid::BuildBoxes() {
  for (std::size_t row = 0; row < kExceptionRows; ++row) {
    auto*& label = rowLabels_.at(row);
    label = new wxStaticText(this, wxID_ANY, std::to_string(row + 1), wxDefaultPosition,
                             wxDefaultSize, wxALIGN_CENTRE_HORIZONTAL);
    label->SetName("Label_Row" + std::to_string(row));
    for (std::size_t i = 0; i < kExceptionBoxes; ++i)
      boxes_.at(row).at(i) = NewBox({static_cast<ExceptionBox>(i), row});
    NameBoxes(row);
  }
}

wxTextCtrl* OvcGrid::NewBox(ExceptionFocus at) {
  const Kind& kind = KindOf(at.box);
  auto* const box =
      NewEntryBox(this, kind.name + std::to_string(at.row), kind.widest, !editor_.ViewOnly());
  box->Bind(wxEVT_SET_FOCUS, [this, at](wxFocusEvent& event) {
    if (IsShownOnScreen()) OnEntered(at);
    event.Skip();
  });
  box->Bind(wxEVT_KILL_FOCUS, [this, at](wxFocusEvent& event) {
    if (IsShownOnScreen()) Enter(at, Typed(at.row));  // the editor of a closed form is gone
    event.Skip();
  });
  if (IsValue(at.box)) {
    OfferPickList(*box, parts_.pickList, parts_.texts, [this, at](const std::string& typed) {
      ExceptionTexts texts = Typed(at.row);
      texts[at.box] = typed;
      Enter(at, texts);
    });
  }
  return box;
}

// Joins "Start-" and "datum" into one word.
void OvcGrid::NameBoxes(std::size_t row) {
  for (std::size_t i = 0; i < kExceptionBoxes; ++i) {
    wxString name = Label_Info.at(kKinds.at(i).group)->GetLabel();
    if (!name.EndsWith("-", &name)) name += " ";
    name += Label_Info.at(kKinds.at(i).heading)->GetLabel() + " " + std::to_string(row + 1);
    SetAccessibleName(*boxes_.at(row).at(i), name);
  }
}

void OvcGrid::LayOut() {
  constexpr int headings = 2;
  constexpr int stopColumn = 5;  // column 4 separates start and stop
  const int gap = FromDIP(kGap);
  auto* const cells = new wxGridBagSizer(gap, gap);
  cells->Add(Label_Info[kRowLabel], {1, 0}, {1, 1}, wxRIGHT, gap);
  cells->Add(Label_Info[KindOf(ExceptionBox::DateOn).group], {0, 1}, {1, 3});
  cells->Add(Label_Info[KindOf(ExceptionBox::DateOff).group], {0, stopColumn}, {1, 3});
  cells->Add(2 * gap, 0, wxGBPosition(0, 4));
  for (int i = 0; i < static_cast<int>(kExceptionBoxes); ++i) {
    const int column = i < 3 ? 1 + i : stopColumn + i - 3;
    const auto place = static_cast<std::size_t>(i);
    cells->Add(Label_Info.at(kKinds.at(place).heading), {1, column});
    for (int row = 0; row < static_cast<int>(kExceptionRows); ++row)
      cells->Add(boxes_.at(static_cast<std::size_t>(row)).at(place), {headings + row, column},
                 {1, 1}, wxEXPAND);
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

wxTextCtrl& OvcGrid::Box(ExceptionFocus at) const {
  return *boxes_.at(at.row).at(static_cast<std::size_t>(at.box));
}

std::optional<ExceptionFocus> OvcGrid::FocusedBox() const {
  const wxWindow* const focused = FindFocus();
  for (std::size_t row = 0; row < kExceptionRows; ++row) {
    for (std::size_t i = 0; i < kExceptionBoxes; ++i)
      if (boxes_.at(row).at(i) == focused) return {{static_cast<ExceptionBox>(i), row}};
  }
  return std::nullopt;
}

ExceptionTexts OvcGrid::Typed(std::size_t row) const {
  ExceptionTexts typed;
  for (std::size_t i = 0; i < kExceptionBoxes; ++i)
    typed.texts.at(i) = FromWx(boxes_.at(row).at(i)->GetValue());
  return typed;
}

void OvcGrid::ShowRow(std::size_t row) {
  const ExceptionTexts shown = editor_.RowTexts(row);
  for (std::size_t i = 0; i < kExceptionBoxes; ++i) {
    wxTextCtrl& box = *boxes_.at(row).at(i);
    const wxString wanted = ToWx(shown.texts.at(i));
    if (box.GetValue() != wanted) box.ChangeValue(wanted);
  }
}

void OvcGrid::Enter(ExceptionFocus at, const ExceptionTexts& typed) {
  const std::vector<WrongEntry> wrong = editor_.Enter(at, typed);
  ShowRow(at.row);
  parts_.changed();
  if (wrong.empty()) return;
  wrong_.insert(wrong_.end(), wrong.begin(), wrong.end());
  // Deferred, because a message now would disturb the move of the focus.
  CallAfter([this] {
    if (!IsShownOnScreen()) return;
    const wxWeakRef<OvcGrid> alive(this);
    if (TellWrong() && alive) CallAfter([this] { SelectFocused(); });
  });
}

// After a message, typing replaces the box's text, just as it does without a message.
void OvcGrid::SelectFocused() {
  if (const auto at = FocusedBox()) Box(*at).SelectAll();
}

void OvcGrid::TakeEntry() {
  if (const auto at = FocusedBox()) Enter(*at, Typed(at->row));
}

bool OvcGrid::HasEntry() const {
  const auto at = FocusedBox();
  return at && Typed(at->row) != editor_.RowTexts(at->row);
}

void OvcGrid::DropEntry() {
  if (const auto at = FocusedBox()) ShowRow(at->row);
  SelectFocused();
}

bool OvcGrid::TellWrong() {
  const std::vector<WrongEntry> wrong = std::exchange(wrong_, {});
  ShowWrong(wrong, parts_.prompts, parts_.texts);
  return !wrong.empty();
}

void OvcGrid::Focus(ExceptionFocus at) {
  Box(at).SetFocus();
  OnEntered(at);  // some systems send the focus event before the form is visible
  Box(at).SelectAll();
}

bool OvcGrid::TakeKey(int key) {
  if (key != WXK_RETURN && key != WXK_NUMPAD_ENTER) return false;
  const std::optional<ExceptionFocus> at = FocusedBox();
  if (!at) return false;
  Focus(NextFocus(*at));
  return true;
}

void OvcGrid::OnEntered(ExceptionFocus at) {
  last_ = at;
  editor_.FocusRow(at.row);
  if (marked_ == at.row) return;
  // The mark stays while a button has the focus, because the buttons act on the marked row.
  if (marked_) MarkLabel(*rowLabels_.at(*marked_), false);
  MarkLabel(*rowLabels_.at(at.row), true);
  marked_ = at.row;
}

}  // namespace zek
