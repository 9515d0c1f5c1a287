#pragma once

#include <functional>
#include <string>

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include "ui/DropDown.h"

namespace zek {

/// A text box of an editor's grid: fixed pitch, wide enough for `widest`, at most 20 characters. A
/// small arrow in it opens something to choose, and a sign and a colour mark a doubtful text. A
/// read-only box is grey. The text control inside has the name `name`.
class EntryBox final : public wxPanel {
 public:
  EntryBox(wxWindow* parent, const std::string& name, const wxString& widest, bool editable);

  wxTextCtrl& Text() const { return *text_; }
  std::string Typed() const;
  void ShowText(const std::string& text);
  /// Moves the focus here and selects the text.
  void Focus();

  /// Offers what `drop` opens below the box: by the arrow, Alt+Down, the menu key or Shift+F10, and
  /// with `byClick` by a click on the text. `drop` may return null.
  void Offer(std::function<DropDown*()> drop, const wxString& toolTip, bool byClick);

  /// What a screen reader says for the box, followed by the reason of its mark.
  void SetSpokenName(const wxString& name);

  /// Marks the text and says why; "" removes the mark.
  void Mark(const wxString& why);
  /// Shows that the box belongs to several that are chosen together.
  void Choose(bool chosen);

  bool AcceptsFocus() const override { return false; }

 private:
  void OnPaint(wxPaintEvent& event);
  void OnKey(wxKeyEvent& event);
  bool IsOpen() const;
  void Toggle();
  wxRect ArrowPlace() const;
  void ShowToolTip();
  void ShowSpokenName();
  void ShowGround();

  wxTextCtrl* text_;
  int width_ = 0;                // of the text, without a mark
  wxSizerItem* room_ = nullptr;  // for the sign and the arrow
  std::function<DropDown*()> drop_;
  wxWeakRef<DropDown> open_;
  wxString spoken_;
  wxString hint_;
  wxString why_;
  bool chosen_ = false;
};

/// Highlights the heading of the current row or column, or removes the highlight.
void MarkLabel(wxStaticText& heading, bool current);

}  // namespace zek
