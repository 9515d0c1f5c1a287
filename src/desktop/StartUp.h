#pragma once

#include <iostream>
#include <optional>
#include <string>

#include <wx/defs.h>
#include <wx/snglinst.h>

#include "app/FirstStart.h"
#include "app/StartSession.h"
#include "app/ZV_Proc.h"
#include "settings/CommandLine.h"
#include "system/OtherPrompts.h"
#include "text/Windows1252.h"

namespace zek {

/// Returns the error in the command line or the program directory, or "". With `isNew` there are no
/// settings yet, which only somebody at the screen can give.
std::string Complaint(const CommandLine& line, const Folders& folders, bool isNew);

/// Gives the new data folder of an installed program its settings, see `PrepareDataFolder`. Returns
/// false if the program must end.
bool FirstStart(Files& files, const Folders& folders, const Messages& toUser);

/// Starts the session of the desktop program: asks for the language, allows one instance only, uses
/// the system's number format. `instance` is the lock: its destructor lets another instance start.
/// Returns an exit status if the program must end.
std::optional<ExitStatus> StartUp(ZV_Proc& proc, const CommandLine& line,
                                  wxSingleInstanceChecker& instance);

/// True if a task scheduler started the program: no message box may wait for an answer.
inline bool IsUnattended(const CommandLine& line) { return HasSwitch(line.text, "/BATCH"); }

/// Replaces all message boxes while it exists, because no user is there to answer them. Each
/// message becomes a line in the log, in the batch export's notes and on standard error.
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
