#pragma once

#include <optional>
#include <string>

#include <wx/defs.h>
#include <wx/snglinst.h>

#include "app/StartSession.h"
#include "settings/CommandLine.h"

namespace zek {

/// What is wrong with the command line, for standard error; "" when nothing is.
std::string Complaint(const CommandLine& line, const std::string& programPath);

/// `StartSession` with what a desktop program adds: a question for the language, one instance only,
/// numbers as the system prints them. `instance` stands for this instance as long as it lives.
std::optional<ExitStatus> StartUp(ZV_Proc& proc, const CommandLine& line,
                                  wxSingleInstanceChecker& instance);

}  // namespace zek
