#pragma once

#include <windows.h>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace zek::test {

/// The folder of the test program, with its separator.
inline std::string ProgramFolder() {
  std::string path(MAX_PATH, '\0');
  path.resize(::GetModuleFileNameA(nullptr, path.data(), MAX_PATH));
  return path.substr(0, path.find_last_of('\\') + 1);
}

/// A test program from the same folder. It runs until this object is destroyed, which closes its
/// standard input.
class ServerProcess {
 public:
  /// Starts it and waits until it creates the event named by its first argument: then it serves.
  ServerProcess(const std::string& program, const std::vector<std::string>& arguments) {
    std::string line = "\"\"" + ProgramFolder() + program + "\"";  // the shell takes the outer ones
    for (const std::string& argument : arguments) line += " \"" + argument + "\"";
    input_ = ::_popen((line + "\"").c_str(), "w");
    for (int tries = 0; input_ != nullptr && tries < 2000; ++tries) {
      HANDLE const ready = ::OpenEventA(SYNCHRONIZE, FALSE, arguments.front().c_str());
      if (ready != nullptr) {
        ::CloseHandle(ready);
        return;
      }
      ::Sleep(10);
    }
    throw std::runtime_error(line + " does not start");
  }
  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;
  ~ServerProcess() { ::_pclose(input_); }

 private:
  std::FILE* input_;
};

}  // namespace zek::test
