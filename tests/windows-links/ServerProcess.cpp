#include "windows-links/ServerProcess.h"

#include <windows.h>
#include <stdexcept>

namespace zek::test {

struct ServerProcess::Handles {
  HANDLE process = nullptr;
  HANDLE input = nullptr;   // our end; it ends with it
  HANDLE output = nullptr;  // our end
};

std::string ProgramFolder() {
  std::string path(MAX_PATH, '\0');
  path.resize(::GetModuleFileNameA(nullptr, path.data(), MAX_PATH));
  return path.substr(0, path.find_last_of('\\') + 1);
}

ServerProcess::ServerProcess(const std::string& program, const std::vector<std::string>& arguments)
    : handles_(std::make_unique<Handles>()) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  STARTUPINFOA start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
  ::CreatePipe(&start.hStdInput, &handles_->input, &inherited, 0);
  ::CreatePipe(&handles_->output, &start.hStdOutput, &inherited, 0);
  ::SetHandleInformation(handles_->input, HANDLE_FLAG_INHERIT, 0);
  ::SetHandleInformation(handles_->output, HANDLE_FLAG_INHERIT, 0);
  std::string line = "\"" + ProgramFolder() + program + "\"";
  for (const std::string& argument : arguments) line += " \"" + argument + "\"";
  PROCESS_INFORMATION made{};
  const BOOL started = ::CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        nullptr, &start, &made);
  ::CloseHandle(start.hStdInput);
  ::CloseHandle(start.hStdOutput);
  char byte = 0;
  DWORD count = 0;
  if (started == FALSE || ::ReadFile(handles_->output, &byte, 1, &count, nullptr) == FALSE) {
    throw std::runtime_error(line + " does not start");
  }
  ::CloseHandle(made.hThread);
  handles_->process = made.hProcess;
}

ServerProcess::~ServerProcess() {
  ::CloseHandle(handles_->input);
  ::CloseHandle(handles_->output);
  if (::WaitForSingleObject(handles_->process, 5000) != WAIT_OBJECT_0) {
    ::TerminateProcess(handles_->process, 1);
  }
  ::CloseHandle(handles_->process);
}

}  // namespace zek::test
