#include <string>
#include <string_view>

#include <wx/toolbar.h>

#include "forms/browser/ZV_TSC.h"
#include "lang/TextNumbers.h"

// The browser's tool bar.
namespace zek {

using namespace browser;

namespace {

constexpr int kSize = 24;

constexpr std::string_view kWeekdays =
    R"(<circle cx="12" cy="12" r="9.5" fill="#ffffff" stroke="#1f5f8b" stroke-width="2"/>
<path d="M12 6 V12 L16 14.5" fill="none" stroke="#1f5f8b" stroke-width="2" stroke-linecap="round"/>)";

constexpr std::string_view kCalendar =
    R"(<rect x="3" y="4" width="18" height="17" rx="2" fill="#ffffff" stroke="#2e7d32" stroke-width="2"/>
<path d="M3 9 H21" stroke="#2e7d32" stroke-width="3"/><path d="M8 2 V6 M16 2 V6" stroke="#2e7d32"
 stroke-width="2"/><rect x="13" y="13" width="4" height="4" fill="#2e7d32"/>)";

constexpr std::string_view kException =
    R"(<path d="M12 3 L22 20 H2 Z" fill="#fff3e0" stroke="#e65100" stroke-width="2"
 stroke-linejoin="round"/><path d="M12 9 V14" stroke="#e65100" stroke-width="2.4"
 stroke-linecap="round"/><circle cx="12" cy="17" r="1.3" fill="#e65100"/>)";

constexpr std::string_view kApplies =
    R"(<rect x="2" y="3" width="20" height="18" rx="2" fill="#ffffff" stroke="#1f5f8b"
 stroke-width="2"/><path d="M5 8 H14 M9 12 H19 M5 16 H11" stroke="#1f5f8b" stroke-width="3"/>)";

constexpr std::string_view kHistory =
    R"(<path d="M5 12 a8 8 0 1 1 2.5 5.8" fill="none" stroke="#75828e" stroke-width="2"/>
<path d="M1.5 10 L5 14 L8.5 10 Z" fill="#75828e"/><path d="M13 8 V13 L16 15" fill="none"
 stroke="#75828e" stroke-width="2" stroke-linecap="round"/>)";

constexpr std::string_view kExport =
    R"(<path d="M5 3 H14 L19 8 V21 H5 Z" fill="#ffffff" stroke="#75828e" stroke-width="2"
 stroke-linejoin="round"/><path d="M12 10 V17 M8.5 14 L12 17.5 L15.5 14" fill="none"
 stroke="#1f5f8b" stroke-width="2"/>)";

constexpr std::string_view kPlaces =
    R"(<path d="M3 11 L12 3 L21 11 V21 H3 Z" fill="#ffffff" stroke="#b07d2b" stroke-width="2"
 stroke-linejoin="round"/><rect x="10" y="14" width="4" height="7" fill="#b07d2b"/>)";

wxBitmapBundle Picture(std::string_view shapes) {
  const std::string svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24">)" +
                          std::string(shapes) + "</svg>";
  return wxBitmapBundle::FromSVG(svg.c_str(), wxSize(kSize, kSize));
}

}  // namespace

void ZV_TSC::BuildToolbar() {
  wxToolBar* const bar = CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT | wxTB_TEXT);
  bar->SetName("Toolbar_Browser");
  const auto plain = [this](std::int32_t number) {
    return wxControl::RemoveMnemonics(Label(number));
  };
  const auto add = [&](int id, std::int32_t caption, std::int32_t hint, const char* key,
                       std::string_view picture, wxItemKind kind = wxITEM_NORMAL) {
    const wxString toolTip = plain(hint) + (*key == 0 ? wxString() : wxString(" (") + key + ")");
    bar->AddTool(id, plain(caption), Picture(picture), toolTip, kind);
  };
  add(Menu_GetWDC, text::kTitleWeekdays, text::kBrowserGetWDC, "F5", kWeekdays);
  add(Menu_GetSDC, text::kTitleCalendar, text::kBrowserGetSDC, "F6", kCalendar);
  add(Menu_GetOVC, text::kTitleExceptions, text::kBrowserGetOVC, "F7", kException);
  add(Menu_Applies, text::kApplies, text::kAppliesHint, "F9", kApplies);
  add(Menu_History, text::kHistoryTitle, text::kHistoryMenu, "F8", kHistory);
  bar->AddSeparator();
  add(Tool_ByPlace, text::kViewByPlace, text::kViewByPlace, "", kPlaces, wxITEM_CHECK);
  add(Menu_Batch_Run, text::kBatchTitle, text::kMenuBatchRun, "", kExport);
  bar->Realize();
}

}  // namespace zek
