#include "ui/Pictures.h"

#include <string>
#include <string_view>

namespace zek {
namespace {

constexpr int kToolSize = 24;

constexpr std::string_view kProgram =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 64 64">
<rect x="2" y="2" width="60" height="60" rx="12" fill="#1f5f8b"/>
<circle cx="32" cy="30" r="20" fill="#ffffff"/>
<path d="M32 17 V30 L41 36" fill="none" stroke="#1f5f8b" stroke-width="4"
 stroke-linecap="round" stroke-linejoin="round"/>
<path d="M10 56 H24 V52 H40 V56 H54" fill="none" stroke="#ffc857" stroke-width="4"
 stroke-linecap="round" stroke-linejoin="round"/>
</svg>)";

constexpr std::string_view kDisconnect =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24">
<g fill="none" stroke="#75828e" stroke-width="2" stroke-linecap="round">
<path d="M2 12 H6"/><path d="M18 12 H22"/></g>
<path d="M6 7 H9 V17 H6 Z" fill="#75828e"/><path d="M15 7 H18 V17 H15 Z" fill="#75828e"/>
<path d="M10 4 L14 20" stroke="#c0392b" stroke-width="2" stroke-linecap="round"/>
</svg>)";

constexpr std::string_view kCatalogues =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24">
<circle cx="12" cy="12" r="9.5" fill="#ffffff" stroke="#1f5f8b" stroke-width="2"/>
<path d="M12 6 V12 L16 14.5" fill="none" stroke="#1f5f8b" stroke-width="2"
 stroke-linecap="round" stroke-linejoin="round"/>
</svg>)";

constexpr std::string_view kClear =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24">
<rect x="4" y="3" width="16" height="18" rx="2" fill="#ffffff" stroke="#75828e" stroke-width="2"/>
<g stroke="#c0392b" stroke-width="2" stroke-linecap="round">
<path d="M9 9 L15 15"/><path d="M15 9 L9 15"/></g>
</svg>)";

wxBitmapBundle FromSvg(std::string_view svg, int size) {
  return wxBitmapBundle::FromSVG(std::string(svg).c_str(), wxSize(size, size));
}

}  // namespace

wxBitmapBundle ProgramPicture(int size) { return FromSvg(kProgram, size); }

wxIconBundle ProgramIcons() {
  wxIconBundle icons;
  for (const int size : {16, 32, 48}) icons.AddIcon(ProgramPicture(size).GetIcon({size, size}));
  return icons;
}

wxBitmapBundle DisconnectPicture() { return FromSvg(kDisconnect, kToolSize); }
wxBitmapBundle CataloguesPicture() { return FromSvg(kCatalogues, kToolSize); }
wxBitmapBundle ClearPicture() { return FromSvg(kClear, kToolSize); }

}  // namespace zek
