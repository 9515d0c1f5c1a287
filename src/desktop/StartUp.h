#pragma once

#include <optional>
#include <string>

#include <wx/defs.h>
#include <wx/snglinst.h>

#include "desktop/Desktop.h"
#include "settings/CommandLine.h"

namespace zek {

enum ExitStatus : int { kDone = 0, kFailed = 1, kWrongUsage = 2 };

/// What is wrong with the command line, for standard error; "" when nothing is.
std::string Complaint(const CommandLine& line, const std::string& programPath);

/// Everything ahead of the main window, in this order: the language, one instance only, the
/// switches and settings, the tag object. The exit status when the program ends here.
/// `instance` stands for this instance as long as it lives.
std::optional<int> StartUp(Desktop& desktop, const CommandLine& line,
                           wxSingleInstanceChecker& instance);

}  // namespace zek
