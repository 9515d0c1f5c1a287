#pragma once

#include <wx/bmpbndl.h>
#include <wx/vector.h>

namespace zek {

/// The pictures of the browser's tree, crisp at any resolution. The index is the `NodePicture`;
/// 0 is blank.
wxVector<wxBitmapBundle> NodePictures();

}  // namespace zek
