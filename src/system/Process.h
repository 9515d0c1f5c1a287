#pragma once

#include <string>
#include <vector>

namespace zek {

/// Returns the arguments in UTF-8, without the program's name.
std::vector<std::string> ProgramArguments(int argc, char** argv);

/// Returns the directory of the executable in UTF-8, with the system's separator at its end.
std::string ExecutableDirectory();

/// Returns the name of the user who runs the program, UTF-8; "" if the system does not tell.
std::string UserName();

/// Returns the one name that all spellings of an existing directory have in common (UTF-8):
/// absolute, links followed, on Windows with the letters' case on the disk. Returns `path` if the
/// system does not know the directory.
std::string CanonicalDirectory(const std::string& path);

/// Returns the user's decimal separator, "." or ",". The C library's number functions still use
/// "." afterwards.
char SystemDecimalSeparator();

/// Makes standard input and output carry bytes unchanged on every system, and consoles show
/// std::cout and std::cerr as UTF-8. Call once, before any other use of the streams.
void PrepareStandardStreams();

/// True if standard error is a terminal that supports escape sequences.
bool IsErrorTerminal();

/// Reports an error on standard error; on Windows in a message box, unless standard error is
/// redirected.
void Complain(const std::string& utf8);

/// The same for information and standard output.
void Inform(const std::string& utf8);

/// From now on Ctrl+C, a request to terminate and a lost terminal (SIGINT, SIGTERM, SIGHUP) do
/// not end the program at once. They end its waits (see `WxTurn`), so that it can finish its
/// files. A second signal of the same kind ends the program at once.
void CatchInterrupts();

/// True if one of these signals has arrived.
bool Interrupted();

}  // namespace zek
