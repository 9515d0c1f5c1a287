#pragma once

#include <iostream>
#include <optional>
#include <string>

#include <wx/defs.h>
#include <wx/snglinst.h>

#include "app/StartSession.h"
#include "app/ZV_Proc.h"
#include "settings/CommandLine.h"
#include "system/LogPrompts.h"
#include "text/Windows1252.h"

namespace zek {

/// What is wrong with the command line, for standard error; "" when nothing is.
std::string Complaint(const CommandLine& line, const std::string& programPath);

/// `StartSession` with what a desktop program adds: a question for the language, one instance only,
/// numbers as the system prints them. `instance` stands for this instance as long as it lives.
std::optional<ExitStatus> StartUp(ZV_Proc& proc, const CommandLine& line,
                                  wxSingleInstanceChecker& instance);

/// The program was started by a task scheduler: no box of any kind may wait for an answer.
inline bool IsUnattended(const CommandLine& line) { return HasSwitch(line.text, "/BATCH"); }

/// For its own life nobody sits in front of the program: no message box waits for an answer, each
/// is a line of the log, of the batch export's notes and of standard error.
class Unattended {
 public:
  explicit Unattended(ZV_Proc& proc)
      : log_([&proc](const std::string& line) {
          proc.log.Add(line);
          proc.batch.Notes.push_back(line);
          std::cerr << "zekview: " << Utf8FromWindows1252(line) << std::endl;
        }),
        noBoxes_(proc.prompts, log_) {}

 private:
  LogPrompts log_;
  PromptsInstead noBoxes_;
};

}  // namespace zek
