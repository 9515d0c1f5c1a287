#include <wx/access.h>

#include "SpokenName.h"

namespace zek::window {

std::string SpokenName(wxWindow& window) {
  wxString name;
  if (wxAccessible* const accessible = window.GetAccessible())
    accessible->GetName(wxACC_SELF, &name);
  return name.utf8_string();
}

}  // namespace zek::window
