#include "desktop/ScreenPicture.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/dynlib.h>
#include <wx/gdicmn.h>
#include <wx/image.h>

namespace zek {
namespace {

// The drawing library keeps what it has once read from the screen, until it is told that the
// screen has changed. The toolkit has no call for that, and the library is loaded already.
void ForgetOldScreen([[maybe_unused]] const wxDC& screen) {
#ifdef __WXGTK__
  using TargetOf = void* (*)(void*);
  using Call = void (*)(void*);
  const wxDynamicLibrary cairo("libcairo.so.2", wxDL_NOW | wxDL_VERBATIM);
  if (!cairo.IsLoaded()) return;
  const auto targetOf = reinterpret_cast<TargetOf>(cairo.GetSymbol("cairo_get_target"));
  const auto flush = reinterpret_cast<Call>(cairo.GetSymbol("cairo_surface_flush"));
  const auto markDirty = reinterpret_cast<Call>(cairo.GetSymbol("cairo_surface_mark_dirty"));
  if (targetOf == nullptr || flush == nullptr || markDirty == nullptr) return;
  void* const target = targetOf(screen.GetHandle());
  flush(target);
  markDirty(target);
#endif
}

}  // namespace

bool SaveScreenPicture(const wxWindow& window, const std::string& path) {
  const wxRect place =
      wxRect(window.GetScreenPosition(), window.GetSize()).Intersect(wxRect(wxGetDisplaySize()));
  wxBitmap picture;
  picture.CreateWithDIPSize(place.GetSize(), window.GetContentScaleFactor());
  {
    wxScreenDC screen;
    ForgetOldScreen(screen);
    wxMemoryDC memory(picture);
    memory.Blit({0, 0}, place.GetSize(), &screen, place.GetPosition());
  }
  return picture.ConvertToImage().SaveFile(wxString::FromUTF8(path), wxBITMAP_TYPE_BMP);
}

}  // namespace zek
