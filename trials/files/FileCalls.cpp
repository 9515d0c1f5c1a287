// Replaces calls of the C library under their own names. All file calls of this program and of the
// C++ library go through here.

#include "files/FileCalls.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <type_traits>
#include <unistd.h>

namespace zek::test {
namespace {

using Kind = CallFault::Kind;

struct Watch {
  std::string folder;
  CallFault fault;
  std::vector<FileCall> calls;
  std::array<std::string, 256> opened;  // the descriptors' paths; "" is not watched
};

Watch* watch = nullptr;  // null: no calls are watched, as before main

bool IsWatched(const std::string& path) {
  return watch != nullptr && (path + "/").starts_with(watch->folder);
}

std::string Whole(const char* path) {
  std::string whole(path);
  if (whole.starts_with('/')) return whole;
  std::array<char, 4096> current{};
  if (::getcwd(current.data(), current.size()) == nullptr) return whole;
  return std::string(current.data()) + "/" + whole;
}

std::string* Opened(int descriptor) {
  const bool known =
      watch != nullptr && descriptor >= 0 && descriptor < static_cast<int>(watch->opened.size());
  return known ? &watch->opened[static_cast<std::size_t>(descriptor)] : nullptr;
}

std::string PathOf(int descriptor) {
  const std::string* const path = Opened(descriptor);
  return path == nullptr ? std::string() : *path;
}

[[noreturn]] void Die() {
  ::kill(::getpid(), SIGKILL);
  std::abort();
}

// The fault of the call that is being made; it is counted with this.
Kind FaultOf(const char* name, const std::string& path, const std::string& to) {
  watch->calls.push_back({name, path, to});
  const int number = static_cast<int>(watch->calls.size());
  const CallFault& fault = watch->fault;
  if (fault.kind == Kind::None || number < fault.at) return Kind::None;
  if (number > fault.at && !fault.lasting) return Kind::None;
  if (fault.kind == Kind::KillBefore) Die();
  return fault.kind;
}

template <class Result>
Result Failed() {
  errno = watch->fault.code;
  if constexpr (std::is_pointer_v<Result>) {
    return nullptr;
  } else {
    return static_cast<Result>(-1);
  }
}

template <class Work>
auto Watched(const char* name, const std::string& path, Work work, const std::string& to = {})
    -> decltype(work()) {
  if (path.empty() || !IsWatched(path)) return work();
  const Kind kind = FaultOf(name, path, to);
  if (kind == Kind::Error) return Failed<decltype(work())>();
  const auto result = work();
  if (kind == Kind::KillAfter) Die();
  return result;
}

template <class Call>
Call* Real(const char* name) {
  return reinterpret_cast<Call*>(::dlsym(RTLD_NEXT, name));
}

template <class Work>
int Open(const char* path, int flags, Work work) {
  const bool writes = (flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC)) != 0;
  const std::string whole = Whole(path);
  const int descriptor = Watched(writes ? "create" : "open", whole, work);
  if (std::string* const place = Opened(descriptor); place != nullptr && IsWatched(whole)) {
    *place = whole;
  }
  return descriptor;
}

}  // namespace

void WatchCalls(const std::string& folder, const CallFault& fault) {
  delete watch;
  watch = new Watch{folder, fault, {}, {}};
}

std::vector<FileCall> TakeCalls() {
  if (watch == nullptr) return {};
  std::vector<FileCall> calls = std::move(watch->calls);
  delete watch;
  watch = nullptr;
  return calls;
}

bool Changes(const FileCall& call) {
  static const std::set<std::string> changing = {"create", "write", "rename", "unlink",  "mkdir",
                                                 "rmdir",  "link",  "chmod",  "truncate"};
  return changing.contains(call.name);
}

}  // namespace zek::test

using zek::test::Kind;
using zek::test::Opened;
using zek::test::PathOf;
using zek::test::Real;
using zek::test::Watched;
using zek::test::Whole;

// The functions have names of their own, since those of the C library stand in its headers already.
#define REPLACE(Result, Name, symbol, parameters) \
  Result Name parameters __asm__(symbol);         \
  Result Name parameters

// NOLINTBEGIN(bugprone-macro-parentheses): parameter lists
#define WATCH(Result, Name, symbol, what, path, parameters, arguments) \
  REPLACE(Result, Name, symbol, parameters) {                          \
    static auto* const real = Real<Result parameters>(symbol);         \
    return Watched(what, path, [&] { return real arguments; });        \
  }
// NOLINTEND(bugprone-macro-parentheses)

extern "C" {

WATCH(DIR*, CallOpendir, "opendir", "list", Whole(path), (const char* path), (path))
WATCH(int, CallStat, "stat", "status", Whole(path), (const char* path, struct stat* status),
      (path, status))
WATCH(int, CallUnlink, "unlink", "unlink", Whole(path), (const char* path), (path))
WATCH(int, CallRemove, "remove", "unlink", Whole(path), (const char* path), (path))
WATCH(int, CallMkdir, "mkdir", "mkdir", Whole(path), (const char* path, mode_t mode), (path, mode))
WATCH(int, CallRmdir, "rmdir", "rmdir", Whole(path), (const char* path), (path))
WATCH(int, CallSymlink, "symlink", "link", Whole(path), (const char* target, const char* path),
      (target, path))
WATCH(int, CallTruncate, "truncate", "truncate", Whole(path), (const char* path, off_t size),
      (path, size))
WATCH(ssize_t, CallRead, "read", "read", PathOf(file), (int file, void* bytes, size_t size),
      (file, bytes, size))
WATCH(int, CallFlock, "flock", "lock", PathOf(file), (int file, int operation), (file, operation))
WATCH(int, CallFtruncate, "ftruncate", "truncate", PathOf(file), (int file, off_t size),
      (file, size))
WATCH(off_t, CallLseek, "lseek", "seek", PathOf(file), (int file, off_t offset, int from),
      (file, offset, from))
WATCH(int, CallFchmod, "fchmod", "chmod", PathOf(file), (int file, mode_t mode), (file, mode))
WATCH(int, CallFstat, "fstat", "status", PathOf(file), (int file, struct stat* status),
      (file, status))

REPLACE(int, CallOpen, "open", (const char* path, int flags, ...)) {
  std::va_list list;
  va_start(list, flags);
  const mode_t mode = (flags & O_CREAT) == 0 ? 0 : va_arg(list, mode_t);
  va_end(list);
  static auto* const real = Real<int(const char*, int, ...)>("open");
  return zek::test::Open(path, flags, [&] { return real(path, flags, mode); });
}

REPLACE(int, CallOpen64, "open64", (const char* path, int flags, ...)) {
  std::va_list list;
  va_start(list, flags);
  const mode_t mode = (flags & O_CREAT) == 0 ? 0 : va_arg(list, mode_t);
  va_end(list);
  return CallOpen(path, flags, mode);
}

REPLACE(FILE*, CallFopen, "fopen", (const char* path, const char* mode)) {
  static auto* const real = Real<FILE*(const char*, const char*)>("fopen");
  const bool reads = mode[0] == 'r' && std::string(mode).find('+') == std::string::npos;
  return Watched(reads ? "open" : "create", Whole(path), [&] { return real(path, mode); });
}

REPLACE(FILE*, CallFopen64, "fopen64", (const char* path, const char* mode)) {
  return CallFopen(path, mode);
}

REPLACE(ssize_t, CallWrite, "write", (int descriptor, const void* bytes, size_t size)) {
  static auto* const real = Real<ssize_t(int, const void*, size_t)>("write");
  const std::string path = PathOf(descriptor);
  if (path.empty()) return real(descriptor, bytes, size);
  const Kind kind = zek::test::FaultOf("write", path, {});
  if (kind == Kind::Error) return zek::test::Failed<ssize_t>();
  const bool half = kind == Kind::Half || kind == Kind::KillHalf;
  const ssize_t written = real(descriptor, bytes, half ? size - size / 2 : size);
  if (kind == Kind::KillHalf || kind == Kind::KillAfter) zek::test::Die();
  return written;
}

REPLACE(int, CallClose, "close", (int descriptor)) {
  static auto* const real = Real<int(int)>("close");
  const std::string path = PathOf(descriptor);
  if (!path.empty()) Opened(descriptor)->clear();
  const int closed = real(descriptor);  // in any case, as the system does
  return Watched("close", path, [&] { return closed; });
}

REPLACE(int, CallFsync, "fsync", (int descriptor)) {
  return Watched("fsync", PathOf(descriptor), [] { return 0; });
}

REPLACE(int, CallRename, "rename", (const char* from, const char* to)) {
  static auto* const real = Real<int(const char*, const char*)>("rename");
  return Watched(
      "rename", Whole(from), [&] { return real(from, to); }, Whole(to));
}
}
