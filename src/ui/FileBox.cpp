#include "ui/FileBox.h"

#include <wx/filedlg.h>
#include <wx/filename.h>

namespace zek {

std::string AskFileToWrite(wxWindow* parent, const wxString& title, const wxString& name,
                           const wxString& filter, const wxString& extension) {
  wxFileDialog dialog(parent, title, {}, name, filter, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
  while (dialog.ShowModal() == wxID_OK) {
    wxFileName file(dialog.GetPath());
    const bool complete = file.HasExt();
    if (!complete) file.SetExt(extension);
    // The box asked about the name without the extension. It asks again if this one exists.
    if (complete || !file.FileExists()) return file.GetFullPath().utf8_string();
    dialog.SetPath(file.GetFullPath());
  }
  return {};
}

std::string AskFileToRead(wxWindow* parent, const wxString& title, const wxString& filter) {
  wxFileDialog dialog(parent, title, {}, {}, filter, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  return dialog.ShowModal() == wxID_OK ? dialog.GetPath().utf8_string() : std::string();
}

}  // namespace zek
