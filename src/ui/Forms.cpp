#include "ui/Forms.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <wx/config.h>
#include <wx/dialog.h>
#include <wx/display.h>
#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/timer.h>
#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace zek {
namespace {
constexpr int kFrameMilliseconds = 20;
constexpr int kFixedPoints = 10;
}  // namespace

void CenterForm(wxTopLevelWindow& form) {
  const wxSize screen = wxGetDisplaySize();
  const wxSize size = form.GetSize();
  form.Move(std::max(0, (screen.x - size.x) / 2), std::max(0, (screen.y - size.y) / 2));
}

wxRect OntoScreen(wxRect place, const wxRect& screen) {
  wxSize size = place.GetSize();
  size.DecTo(screen.GetSize());
  return {std::clamp(place.x, screen.x, screen.x + screen.width - size.x),
          std::clamp(place.y, screen.y, screen.y + screen.height - size.y), size.x, size.y};
}

void SetTopmost(wxTopLevelWindow& form, bool on) {
  const long style = form.GetWindowStyleFlag();
  form.SetWindowStyleFlag(on ? style | wxSTAY_ON_TOP : style & ~wxSTAY_ON_TOP);
}

namespace {

// The place of a form's frame and the size within it. The toolkit's own numbers include the frame
// or not, depending on when they are asked, which makes windows shrink or wander when restored.
wxRect PlaceOf(wxTopLevelWindow& form) {
#ifdef __WXGTK__
  wxRect place;
  gtk_window_get_position(GTK_WINDOW(form.GetHandle()), &place.x, &place.y);
  gtk_window_get_size(GTK_WINDOW(form.GetHandle()), &place.width, &place.height);
  return place;
#else
  return form.GetRect();
#endif
}

// The toolkit's `Move` would set a size, too, which may not be known yet.
void PutAt(wxTopLevelWindow& form, const wxPoint& place) {
#ifdef __WXGTK__
  gtk_window_move(GTK_WINDOW(form.GetHandle()), place.x, place.y);
#else
  form.Move(place);
#endif
}

void Put(wxTopLevelWindow& form, const wxRect& place) {
#ifdef __WXGTK__
  PutAt(form, place.GetPosition());
  gtk_window_resize(GTK_WINDOW(form.GetHandle()), place.width, place.height);
#else
  form.SetSize(place);
#endif
}

// The toolkit shows a form only when the window manager has reported the size of its frame. Until
// then its menus and tool bar are one pixel wide, and complain of it on standard error.
void LayOut([[maybe_unused]] wxTopLevelWindow& form) {
#ifdef __WXGTK__
  GtkAllocation whole{0, 0, form.GetSize().x, form.GetSize().y};
  gtk_widget_get_preferred_size(form.GetHandle(), nullptr, nullptr);
  gtk_widget_size_allocate(form.GetHandle(), &whole);
#endif
}

// Where a form is while it is shown; a hidden one has lost its frame.
class Placement {
 public:
  Placement(wxTopLevelWindow& form, const std::string& name)
      : form_(form), group_("/Placement/" + name + "/") {
    Restore();
  }

  // Some window managers place a form, or shrink it by its frame, when they first show it. So it is
  // put in its place again once it is active.
  void Note(bool active) {
    if (!form_.IsShown() || form_.IsIconized()) return;
    maximized_ = form_.IsMaximized();
    if (maximized_) return;
    if (placed_) {
      place_ = PlaceOf(form_);
    } else if (active) {
      placed_ = true;
      if (place_.IsEmpty()) {
        PutAt(form_, centred_);
      } else {
        Put(form_, place_);
      }
    }
  }

  void Write() const {
    if (place_.IsEmpty()) return;
    wxConfigBase& config = *wxConfigBase::Get();
    config.Write(group_ + "X", place_.x);
    config.Write(group_ + "Y", place_.y);
    const wxSize size = form_.ToDIP(place_.GetSize());
    config.Write(group_ + "Width", size.x);
    config.Write(group_ + "Height", size.y);
    config.Write(group_ + "Maximized", maximized_);
  }

 private:
  // Moves the form onto its screen as it is today; centres it if its place is not known, or on no
  // screen.
  void Restore() {
    const wxConfigBase& config = *wxConfigBase::Get();
    const auto number = [&](const char* name) {
      return static_cast<int>(config.ReadLong(group_ + name, 0));
    };
    wxRect place({number("X"), number("Y")},
                 form_.FromDIP(wxSize(number("Width"), number("Height"))));
    const wxPoint middle = place.GetPosition() + place.GetSize() / 2;
    const int display = wxDisplay::GetFromPoint(middle);
    if (place.IsEmpty() || display == wxNOT_FOUND) {
      CenterForm(form_);
      centred_ = form_.GetPosition();
    } else {
      const wxRect screen = wxDisplay(static_cast<unsigned>(display)).GetClientArea();
      wxSize size = place.GetSize();
      size.IncTo(form_.GetMinSize());
      place_ = OntoScreen({place.GetPosition(), size}, screen);
      form_.SetSize(place_);
      Put(form_, place_);
    }
    if (config.ReadBool(group_ + "Maximized", false)) form_.Maximize();
    LayOut(form_);
  }

  wxTopLevelWindow& form_;
  wxString group_;
  wxRect place_;
  wxPoint centred_;  // used while the place is not known
  bool placed_ = false;
  bool maximized_ = false;
};

}  // namespace

void RememberPlacement(wxTopLevelWindow& form, const std::string& name) {
  form.SetName(name);
  const auto placement = std::make_shared<Placement>(form, name);
  const auto note = [placement](wxEvent& event) {
    event.Skip();
    const auto* const activation = dynamic_cast<const wxActivateEvent*>(&event);
    placement->Note(activation != nullptr && activation->GetActive());
  };
  form.Bind(wxEVT_SIZE, note);
  form.Bind(wxEVT_MOVE, note);
  form.Bind(wxEVT_ACTIVATE, note);
  form.Bind(wxEVT_DESTROY, [placement, &form](wxWindowDestroyEvent& event) {
    event.Skip();
    if (event.GetEventObject() == &form) placement->Write();
  });
}

void IgnoreSecondClick(wxButton& button) {
  const auto second = std::make_shared<bool>(false);
  const auto note = [second](wxMouseEvent& event) {
    *second = event.LeftDClick();
    event.Skip();
  };
  button.Bind(wxEVT_LEFT_DOWN, note);
  button.Bind(wxEVT_LEFT_DCLICK, note);
  button.Bind(wxEVT_BUTTON,
              [second](wxCommandEvent& event) { event.Skip(!std::exchange(*second, false)); });
}

bool HasOpenBox(const wxWindow& form) {
  const wxWindowList& children = form.GetChildren();
  return std::any_of(children.begin(), children.end(), [](const wxWindow* child) {
    // Also one that is answered, while the call that showed it has not returned yet; but not one
    // that is only waiting to be deleted.
    return dynamic_cast<const wxDialog*>(child) != nullptr &&
           (child->GetExtraStyle() & wxWS_EX_TRANSIENT) == 0 && !wxPendingDelete.Member(child);
  });
}

wxFont FixedFont() { return wxFontInfo(kFixedPoints).Family(wxFONTFAMILY_TELETYPE); }

class FrameRefresh::Timer final : public wxTimer {
 public:
  explicit Timer(std::function<void()> refresh) : refresh_(std::move(refresh)) {}

 private:
  void Notify() override { refresh_(); }

  std::function<void()> refresh_;
};

FrameRefresh::FrameRefresh(std::function<void()> refresh)
    : timer_(std::make_shared<Timer>(std::move(refresh))) {}

void FrameRefresh::Request() {
  if (!timer_->IsRunning()) timer_->StartOnce(kFrameMilliseconds);
}

}  // namespace zek
