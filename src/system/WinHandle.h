#pragma once

#include <windows.h>

namespace zek {

/// Owns a handle of the system, of a file or an event, and closes it exactly once.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { Close(); }

  // The system's calls report a failure by one of two values.
  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
  HANDLE Get() const { return handle_; }
  // False if the system reports a late write error.
  bool Close() {
    const bool isOpen = IsOpen();
    const HANDLE handle = handle_;
    handle_ = nullptr;
    return !isOpen || ::CloseHandle(handle) != 0;
  }

 private:
  HANDLE handle_;
};

}  // namespace zek
