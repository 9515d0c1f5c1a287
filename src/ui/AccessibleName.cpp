#include "ui/AccessibleName.h"

#include <memory>

#include <wx/access.h>
#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

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

#elif defined(__WXGTK__)

// The toolkit has no call for it here; the library below has.
void SetAccessibleName(wxWindow& window, const wxString& name) {
  AtkObject* const accessible = gtk_widget_get_accessible(window.GetHandle());
  if (accessible != nullptr) atk_object_set_name(accessible, name.utf8_str());
}

#else

void SetAccessibleName(wxWindow& /*window*/, const wxString& /*name*/) {}

#endif

}  // namespace zek
