#include "ui/AccessibleName.h"

#include <memory>

#include <wx/access.h>
#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace zek {

#if wxUSE_ACCESSIBILITY

namespace {

class Named : public wxAccessible {
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

class Cell final : public Named {
 public:
  Cell(wxWindow& grid, const wxString& name, bool selected)
      : Named(grid, name), selected_(selected) {}

  wxAccStatus GetRole(int childId, wxAccRole* role) override {
    if (childId != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *role = wxROLE_SYSTEM_CELL;
    return wxACC_OK;
  }

  wxAccStatus GetState(int childId, long* state) override {
    if (childId != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *state = wxACC_STATE_SYSTEM_FOCUSABLE | wxACC_STATE_SYSTEM_SELECTABLE;
    if (GetWindow()->HasFocus()) *state |= wxACC_STATE_SYSTEM_FOCUSED;
    if (selected_) *state |= wxACC_STATE_SYSTEM_SELECTED;
    return wxACC_OK;
  }

 private:
  bool selected_;
};

void Tell(wxWindow& window, std::unique_ptr<wxAccessible> accessible) {
  window.SetAccessible(accessible.release());  // the window deletes it
  wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_NAMECHANGE, &window, wxOBJID_CLIENT, wxACC_SELF);
}

}  // namespace

void SetAccessibleName(wxWindow& window, const wxString& name) {
  Tell(window, std::make_unique<Named>(window, name));
}

void SetAccessibleCell(wxWindow& grid, const wxString& name, bool selected) {
  Tell(grid, std::make_unique<Cell>(grid, name, selected));
  wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_STATECHANGE, &grid, wxOBJID_CLIENT, wxACC_SELF);
}

#elif defined(__WXGTK__)

// The toolkit has no call for this on GTK, so call its accessibility library directly.
void SetAccessibleName(wxWindow& window, const wxString& name) {
  AtkObject* const accessible = gtk_widget_get_accessible(window.GetHandle());
  if (accessible != nullptr) atk_object_set_name(accessible, name.utf8_str());
}

void SetAccessibleCell(wxWindow& grid, const wxString& name, bool selected) {
  SetAccessibleName(grid, name);
  AtkObject* const accessible = gtk_widget_get_accessible(grid.GetHandle());
  if (accessible == nullptr) return;
  atk_object_set_role(accessible, ATK_ROLE_TABLE_CELL);
  atk_object_notify_state_change(accessible, ATK_STATE_SELECTED, selected ? 1 : 0);
}

#else

void SetAccessibleName(wxWindow& /*window*/, const wxString& /*name*/) {}
void SetAccessibleCell(wxWindow& /*grid*/, const wxString& /*name*/, bool /*selected*/) {}

#endif

}  // namespace zek
