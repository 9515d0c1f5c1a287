#pragma once

#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace zek {

/// A file descriptor of the system, closed with this and not twice.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }
  int Release() {
    const int number = number_;
    number_ = -1;
    return number;
  }
  /// False with errno when the system reports a late write error.
  bool Close() {
    const int number = Release();
    return number < 0 || ::close(number) == 0;
  }

 private:
  int number_;
};

/// The directory that holds `path`, "/" at its end.
std::string DirectoryOf(const std::string& path);

/// Has the entries of the directory that holds `path` written to the disk: a new name is safe only
/// then. False with errno when that failed; a system that can't do it is none.
bool FlushDirectoryOf(const std::string& path);

}  // namespace zek
