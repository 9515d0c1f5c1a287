#pragma once

#include <string>
#include <vector>

namespace zek {

/// The arguments in UTF-8, without the program's own name.
std::vector<std::string> ProgramArguments(int argc, char** argv);

/// The directory of the executable in UTF-8, the system's separator at its end.
std::string ExecutableDirectory();

/// "." or ",", whichever the user's system prints in numbers. The number functions of the C
/// library keep to "." afterwards.
char SystemDecimalSeparator();

/// Standard input and output carry the same bytes on every system, and a console shows the UTF-8
/// text of std::cout and std::cerr as what it means. Called once, first of all.
void PrepareStandardStreams();

/// Standard error is a terminal that knows the escape sequences for its lines.
bool IsErrorTerminal();

/// Reports an error of a program with windows: on standard error, or in a message box where such a
/// program has none.
void Complain(const std::string& utf8);

/// The same for information, on standard output.
void Inform(const std::string& utf8);

/// From now on Ctrl+C, a request to terminate and a lost terminal (SIGINT, SIGTERM, SIGHUP) no
/// longer end the program at once, but every wait of it (see `WxTurn`), so that it can put its
/// files in order. A second one of the same kind ends it at once.
void CatchInterrupts();

/// One of them has come.
bool Interrupted();

}  // namespace zek
