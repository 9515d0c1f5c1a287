#pragma once

#include <memory>
#include <string>
#include <vector>

namespace zek::test {

/// The folder of the test program, with its separator.
std::string ProgramFolder();

/// A program of ours from the same folder, running until this object is gone.
class ServerProcess {
 public:
  /// Starts it and waits for the line it says when it is ready; throws when it can't be started.
  ServerProcess(const std::string& program, const std::vector<std::string>& arguments);
  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;
  ~ServerProcess();

 private:
  struct Handles;
  std::unique_ptr<Handles> handles_;
};

}  // namespace zek::test
