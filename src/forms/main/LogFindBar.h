#pragma once

#include <functional>

#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "forms/main/ZV_MainLog.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// The search in the log: what is sought, the place of the current hit, next and previous.
class LogFindBar final : public wxPanel {
 public:
  /// `close` is called when the user closes it.
  LogFindBar(wxWindow* parent, const LanguageTexts& texts, LogList& list,
             const std::function<void()>& close);

  /// Shows it, seeks what it has, and lets the user type.
  void Open();
  /// Hides it and ends the search.
  void End();
  /// Shows the place of the current hit.
  void ShowPlace();
  void Next();
  void Previous();

 private:
  wxString Text(std::int32_t number) const;
  void Build(const std::function<void()>& close);

  const LanguageTexts& texts_;
  LogList& list_;
  wxTextCtrl* Text_Find = nullptr;
  wxStaticText* Label_Found = nullptr;
};

}  // namespace zek
