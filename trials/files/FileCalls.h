#pragma once

#include <string>
#include <vector>

namespace zek::test {

/// A fault of one file call of this process.
struct CallFault {
  enum class Kind {
    None,
    Error,       // it fails with `code` and does nothing
    Half,        // a write takes half of its bytes and says so
    KillBefore,  // the process is killed, as by the system
    KillHalf,    // in the middle of a write
    KillAfter,
  };
  Kind kind = Kind::None;
  int code = 0;          // errno
  int at = 0;            // the number of the call, from 1
  bool lasting = false;  // it and every call after it
};

/// One call and its paths.
struct FileCall {
  std::string name;  // "create" and "open" for opening to write and to read
  std::string path;  // whole
  std::string to;    // of a rename
};

/// Starts to count the calls on files and folders below `folder` (it ends in "/"; "/" means all)
/// and injects `fault`. This program replaces the calls of the C library for that, including those
/// that the C++ library makes. fsync does nothing and reports success.
void WatchCalls(const std::string& folder, const CallFault& fault = {});

/// Stops watching. Returns the calls so far, including a failed one.
std::vector<FileCall> TakeCalls();

/// True for a call that can change the disk.
bool Changes(const FileCall& call);

}  // namespace zek::test
