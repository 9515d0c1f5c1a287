#pragma once

#include <wx/window.h>

#include "app/ZV_Proc.h"

namespace zek {

/// Shows the help of the language in use: `page` is the one shown first, from 0. Modal. The pages
/// are in the file "zek_help.NNN" beside the language files; a line "# Title" begins a page.
void ShowHelp(wxWindow* parent, ZV_Proc& proc, std::size_t page = 0);

/// Shows that page for F1, wherever the focus is in a form.
void HelpOnF1(wxWindow& form, ZV_Proc& proc, std::size_t page);

inline constexpr std::size_t kHelpPageStart = 0;
inline constexpr std::size_t kHelpPageCopy = 5;
inline constexpr std::size_t kHelpPageSeveral = 6;
inline constexpr std::size_t kHelpPageHistory = 7;
inline constexpr std::size_t kHelpPageApplies = 8;
inline constexpr std::size_t kHelpPageTopic = 9;
/// The page with the keys, and those with the usual work in an editor.
inline constexpr std::size_t kHelpPageKeys = 1;
constexpr std::size_t HelpPageOf(Catalogue catalogue) {
  if (catalogue == Catalogue::Wdc) return 2;
  return catalogue == Catalogue::Sdc ? 3 : 4;
}

}  // namespace zek
