#include "ui/Forms.h"

#include <algorithm>
#include <memory>

#include <wx/config.h>
#include <wx/display.h>
#include <wx/font.h>
#include <wx/persist/toplevel.h>
#include <wx/timer.h>

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

void SetTopmost(wxTopLevelWindow& form, bool on) {
  const long style = form.GetWindowStyleFlag();
  form.SetWindowStyleFlag(on ? style | wxSTAY_ON_TOP : style & ~wxSTAY_ON_TOP);
}

void RememberPlacement(wxTopLevelWindow& form, const std::string& name) {
  form.SetName(name);
  if (!wxPersistentRegisterAndRestore(&form, name)) CenterForm(form);
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
