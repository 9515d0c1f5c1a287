#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

namespace zek {

/// The program's picture, a clock with switch times, `size` pixels wide at 96 dpi.
wxBitmapBundle ProgramPicture(int size);

/// The same picture for the title bar and the task list.
wxIconBundle ProgramIcons();

/// The tool bar's pictures; vector graphics, sharp at any resolution.
wxBitmapBundle DisconnectPicture();
wxBitmapBundle CataloguesPicture();
wxBitmapBundle ClearPicture();

}  // namespace zek
