#include "ui/AccessibleName.h"

#include <memory>

#include <wx/access.h>

namespace zek {

#if wxUSE_ACCESSIBILITY

namespace {
class Named final : public wxAccessible {
 public:
  Named(wxWindow& window, const wxString& name) : wxAccessible(&window), name_(name) {}

  wxAccStatus GetName(int childId, wxString* name) override {
    if (childId != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = name_;
    return wxACC_OK;
  }

 private:
  wxString name_;
};
}  // namespace

void SetAccessibleName(wxWindow& window, const wxString& name) {
  window.SetAccessible(std::make_unique<Named>(window, name).release());  // the window's own
  wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_NAMECHANGE, &window, wxOBJID_CLIENT, wxACC_SELF);
}

#else

void SetAccessibleName(wxWindow& /*window*/, const wxString& /*name*/) {}

#endif

}  // namespace zek
