#include <windows.h>

#include "system/EventLog.h"
#include "system/WinText.h"

namespace zek {
namespace {

constexpr std::size_t kMostCharacters = 31000;  // the system takes 31839
constexpr DWORD kSuccess = 1;
constexpr DWORD kFailure = 2;

}  // namespace

// A source that is not registered works too: the viewer then adds a remark of its own to the text.
bool RecordEvent(bool succeeded, const std::string& report) {
  std::wstring text = WideFromUtf8(report);
  if (text.size() > kMostCharacters) text.resize(kMostCharacters);
  HANDLE const source = ::RegisterEventSourceW(nullptr, L"ZekView");
  if (source == nullptr) return false;
  const wchar_t* strings = text.c_str();
  const WORD type = succeeded ? EVENTLOG_INFORMATION_TYPE : EVENTLOG_ERROR_TYPE;
  const BOOL done = ::ReportEventW(source, type, 0, succeeded ? kSuccess : kFailure, nullptr, 1, 0,
                                   &strings, nullptr);
  ::DeregisterEventSource(source);
  return done != 0;
}

}  // namespace zek
