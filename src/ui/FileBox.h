#pragma once

#include <string>

#include <wx/window.h>

// The system's boxes for choosing a file. They return its path in UTF-8, or "" if none was chosen.
namespace zek {

/// Asks before a file is overwritten. A name without an extension gets `extension`, "txt".
std::string AskFileToWrite(wxWindow* parent, const wxString& title, const wxString& name,
                           const wxString& filter, const wxString& extension);

std::string AskFileToRead(wxWindow* parent, const wxString& title, const wxString& filter);

}  // namespace zek
