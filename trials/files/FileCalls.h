#pragma once

#include <string>
#include <vector>

namespace zek::test {

/// What happens to one file call of this process instead of, or besides, its work.
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

/// One call, and what it was about.
struct FileCall {
  std::string name;  // "create" and "open" for opening to write and to read
  std::string path;  // whole
  std::string to;    // of a rename
};

/// From here on counts the calls about files and folders below `folder` (it ends in "/"; "/" means
/// all), and meddles with the one that `fault` says. The calls of the C library are replaced in
/// this program for that, those that the C++ library makes included; fsync is taken as done.
void WatchCalls(const std::string& folder, const CallFault& fault = {});

/// Ends it. The calls so far, also one that was made to fail.
std::vector<FileCall> TakeCalls();

/// A call after which something on the disk can be another.
bool Changes(const FileCall& call);

}  // namespace zek::test
