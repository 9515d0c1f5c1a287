#pragma once

#include <functional>
#include <string>
#include <vector>

#include "files/FileCalls.h"

namespace zek::test {

/// What became of a piece of the program that ran in a process of its own.
struct Outcome {
  bool killed = false;
  int status = 0;    // the exit status of the program
  std::string told;  // what it said of failures; "" when killed
  std::vector<FileCall> calls;
};

/// Runs `work` (it says what it told, and returns the exit status) in a child process, with the
/// file calls below `folder` watched.
Outcome RunWatched(const std::string& folder, const CallFault& fault,
                   const std::function<int(std::string& told)>& work);

}  // namespace zek::test
