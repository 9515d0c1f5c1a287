#include "system/WinHeld.h"

#include "system/WinHandle.h"

namespace zek {
namespace {
constexpr int kMostTries = 21;
constexpr DWORD kPause = 50;  // ms
}  // namespace

bool WhileHeld(const std::function<bool()>& call) {
  for (int tries = 1;; ++tries) {
    if (call()) return true;
    const DWORD code = ::GetLastError();
    const bool held = code == ERROR_ACCESS_DENIED || code == ERROR_SHARING_VIOLATION ||
                      code == ERROR_LOCK_VIOLATION;
    if (!held || tries == kMostTries) return false;
    ::Sleep(kPause);
    ::SetLastError(code);
  }
}

unsigned long HeldReason(unsigned long code, const std::wstring& path) {
  if (code != ERROR_ACCESS_DENIED) return code;
  const Handle probe(::CreateFileW(path.c_str(), DELETE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  const bool held = !probe.IsOpen() && ::GetLastError() == ERROR_SHARING_VIOLATION;
  return held ? ERROR_SHARING_VIOLATION : code;
}

}  // namespace zek
