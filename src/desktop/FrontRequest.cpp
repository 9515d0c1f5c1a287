#include "desktop/FrontRequest.h"

#include <functional>

#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/log.h>
#include <wx/stdpaths.h>
#include <wx/toplevel.h>
#include <wx/utils.h>
#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

#include "system/Process.h"

namespace zek {
namespace {

constexpr int kLookMilliseconds = 500;

// The system may refuse the keyboard, but never that a window is shown above all others.
void BringForward(wxTopLevelWindow& form) {
#ifdef __WXMSW__
  HWND const window = form.GetHandle();
  if ((::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) == 0) {
    constexpr UINT inPlace = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    ::SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, inPlace);
    ::SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, inPlace);
    ::SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, inPlace);
  }
#endif
  form.Raise();
}

}  // namespace

wxString InstanceName(const std::string& programPath) {
  return wxString::Format("zekview-%s-%zx", wxGetUserId(),
                          std::hash<std::string>{}(CanonicalDirectory(programPath)));
}

FrontRequest::FrontRequest(const std::string& programPath)
    : file_(wxStandardPaths::Get().GetTempDir() + "/" + InstanceName(programPath) + ".front"),
      timer_([this] { Look(); }) {}

void FrontRequest::Ask() const {
#ifdef __WXMSW__
  ::AllowSetForegroundWindow(ASFW_ANY);  // only the active program may give this away
#endif
  const wxLogNull quiet;  // without the file, the first instance just stays where it is
  wxFile().Create(file_, true);
}

void FrontRequest::Answer() {
  if (wxFileExists(file_)) wxRemoveFile(file_);  // left over
  timer_.Begin(kLookMilliseconds);
}

// The form that was opened last is the one that takes keys.
void FrontRequest::Look() const {
  if (!wxFileExists(file_)) return;
  const wxLogNull quiet;
  wxRemoveFile(file_);
  wxTopLevelWindow* last = nullptr;
  for (wxWindow* const window : wxTopLevelWindows) {
    auto* const form = dynamic_cast<wxTopLevelWindow*>(window);
    if (form == nullptr || !form->IsShown()) continue;
    if (form->IsIconized()) form->Restore();
    last = form;
  }
  if (last != nullptr) BringForward(*last);
}

}  // namespace zek
