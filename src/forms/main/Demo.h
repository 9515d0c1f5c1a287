#pragma once

#include <functional>
#include <string>
#include <vector>

#include <wx/process.h>
#include <wx/string.h>

#include "app/ZV_Proc.h"

namespace zek {

/// Where the files of the demonstration are; paths are UTF-8.
struct DemoFiles {
  std::string program;  // the simulated plant
  std::string folder;   // its settings and, in "plant", its catalogues
  std::string missing;  // the first of these that does not exist; "" if all exist
};

/// The files lie beside the program; without an installation, in the folders of the build.
DemoFiles FindDemo();

/// Starts a program with its arguments; returns the number of its process, or 0.
long StartProgram(const std::vector<wxString>& words, int flags, wxProcess* process);

/// Starts this program once more, with `--demo`. Returns false, after a message, if a file is
/// missing or the system refuses. `failed` is called later if the demonstration could not start.
bool StartDemo(ZV_Proc& proc, std::function<void()> failed);

}  // namespace zek
