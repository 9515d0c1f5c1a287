#pragma once

#include <functional>
#include <string>
#include <vector>

#include "files/FileCalls.h"

namespace zek::test {

/// The result of work in a child process.
struct Outcome {
  bool killed = false;
  int status = 0;    // the exit status of the program
  std::string told;  // its error messages; "" when killed
  std::vector<FileCall> calls;
};

/// Runs `work` (it sets its error messages and returns the exit status) in a child process that
/// watches the file calls below `folder`.
Outcome RunWatched(const std::string& folder, const CallFault& fault,
                   const std::function<int(std::string& told)>& work);

}  // namespace zek::test
