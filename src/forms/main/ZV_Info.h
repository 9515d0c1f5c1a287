#pragma once

#include <wx/dialog.h>
#include <wx/timer.h>

#include "lang/LanguageTexts.h"

namespace zek {

/// `ZV_Info`, the about box. It closes after about twenty seconds, and at once on Escape, Enter or
/// a click; no other window may be its child.
class ZV_Info final : public wxDialog {
 public:
  ZV_Info(wxWindow* parent, const LanguageTexts& texts);

 private:
  void Build(const LanguageTexts& texts);
  void OnTick();

  wxTimer Timer_UnLoad;
  int ticks_ = 0;
};

}  // namespace zek
