#pragma once

#include <windows.h>

namespace zek {

/// Owns a file handle of the system and closes it exactly once.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { Close(); }

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }
  // False if the system reports a late write error.
  bool Close() {
    const HANDLE handle = handle_;
    handle_ = INVALID_HANDLE_VALUE;
    return handle == INVALID_HANDLE_VALUE || ::CloseHandle(handle) != 0;
  }

 private:
  HANDLE handle_;
};

}  // namespace zek
