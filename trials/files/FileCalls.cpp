// The calls of the C library under their own names: what this program and the C++ library call
// goes through here.

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
  std::array<std::string, 256> opened;  // what the descriptors stand for; "" is not watched
};

Watch* watch = nullptr;  // no calls are watched; also before main

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

// Their names are another matter than the symbols that everybody calls.
extern "C" {

int CallOpen(const char* path, int flags, ...) __asm__("open");
int CallOpen64(const char* path, int flags, ...) __asm__("open64");
FILE* CallFopen(const char* path, const char* mode) __asm__("fopen");
FILE* CallFopen64(const char* path, const char* mode) __asm__("fopen64");
DIR* CallOpendir(const char* path) __asm__("opendir");
ssize_t CallRead(int descriptor, void* bytes, size_t size) __asm__("read");
ssize_t CallWrite(int descriptor, const void* bytes, size_t size) __asm__("write");
int CallClose(int descriptor) __asm__("close");
int CallFsync(int descriptor) __asm__("fsync");
int CallFlock(int descriptor, int operation) __asm__("flock");
int CallFtruncate(int descriptor, off_t size) __asm__("ftruncate");
off_t CallLseek(int descriptor, off_t offset, int from) __asm__("lseek");
int CallFchmod(int descriptor, mode_t mode) __asm__("fchmod");
int CallFstat(int descriptor, struct stat* status) __asm__("fstat");
int CallStat(const char* path, struct stat* status) __asm__("stat");
int CallRename(const char* from, const char* to) __asm__("rename");
int CallUnlink(const char* path) __asm__("unlink");
int CallRemove(const char* path) __asm__("remove");
int CallMkdir(const char* path, mode_t mode) __asm__("mkdir");
int CallRmdir(const char* path) __asm__("rmdir");
int CallSymlink(const char* target, const char* path) __asm__("symlink");
int CallTruncate(const char* path, off_t size) __asm__("truncate");

int CallOpen(const char* path, int flags, ...) {
  std::va_list list;
  va_start(list, flags);
  const mode_t mode = (flags & O_CREAT) == 0 ? 0 : va_arg(list, mode_t);
  va_end(list);
  static auto* const real = Real<int(const char*, int, ...)>("open");
  return zek::test::Open(path, flags, [&] { return real(path, flags, mode); });
}

int CallOpen64(const char* path, int flags, ...) {
  std::va_list list;
  va_start(list, flags);
  const mode_t mode = (flags & O_CREAT) == 0 ? 0 : va_arg(list, mode_t);
  va_end(list);
  return CallOpen(path, flags, mode);
}

FILE* CallFopen(const char* path, const char* mode) {
  static auto* const real = Real<FILE*(const char*, const char*)>("fopen");
  const bool reads = mode[0] == 'r' && std::string(mode).find('+') == std::string::npos;
  return Watched(reads ? "open" : "create", Whole(path), [&] { return real(path, mode); });
}

FILE* CallFopen64(const char* path, const char* mode) { return CallFopen(path, mode); }

DIR* CallOpendir(const char* path) {
  static auto* const real = Real<DIR*(const char*)>("opendir");
  return Watched("list", Whole(path), [&] { return real(path); });
}

ssize_t CallRead(int descriptor, void* bytes, size_t size) {
  static auto* const real = Real<ssize_t(int, void*, size_t)>("read");
  return Watched("read", PathOf(descriptor), [&] { return real(descriptor, bytes, size); });
}

ssize_t CallWrite(int descriptor, const void* bytes, size_t size) {
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

int CallClose(int descriptor) {
  static auto* const real = Real<int(int)>("close");
  const std::string path = PathOf(descriptor);
  if (!path.empty()) Opened(descriptor)->clear();
  const int closed = real(descriptor);  // in any case, as the system does
  return Watched("close", path, [&] { return closed; });
}

int CallFsync(int descriptor) {
  return Watched("fsync", PathOf(descriptor), [] { return 0; });
}

int CallFlock(int descriptor, int operation) {
  static auto* const real = Real<int(int, int)>("flock");
  return Watched("lock", PathOf(descriptor), [&] { return real(descriptor, operation); });
}

int CallFtruncate(int descriptor, off_t size) {
  static auto* const real = Real<int(int, off_t)>("ftruncate");
  return Watched("truncate", PathOf(descriptor), [&] { return real(descriptor, size); });
}

off_t CallLseek(int descriptor, off_t offset, int from) {
  static auto* const real = Real<off_t(int, off_t, int)>("lseek");
  return Watched("seek", PathOf(descriptor), [&] { return real(descriptor, offset, from); });
}

int CallFchmod(int descriptor, mode_t mode) {
  static auto* const real = Real<int(int, mode_t)>("fchmod");
  return Watched("chmod", PathOf(descriptor), [&] { return real(descriptor, mode); });
}

int CallFstat(int descriptor, struct stat* status) {
  static auto* const real = Real<int(int, struct stat*)>("fstat");
  return Watched("status", PathOf(descriptor), [&] { return real(descriptor, status); });
}

int CallStat(const char* path, struct stat* status) {
  static auto* const real = Real<int(const char*, struct stat*)>("stat");
  return Watched("status", Whole(path), [&] { return real(path, status); });
}

int CallRename(const char* from, const char* to) {
  static auto* const real = Real<int(const char*, const char*)>("rename");
  return Watched(
      "rename", Whole(from), [&] { return real(from, to); }, Whole(to));
}

int CallUnlink(const char* path) {
  static auto* const real = Real<int(const char*)>("unlink");
  return Watched("unlink", Whole(path), [&] { return real(path); });
}

int CallRemove(const char* path) {
  static auto* const real = Real<int(const char*)>("remove");
  return Watched("unlink", Whole(path), [&] { return real(path); });
}

int CallMkdir(const char* path, mode_t mode) {
  static auto* const real = Real<int(const char*, mode_t)>("mkdir");
  return Watched("mkdir", Whole(path), [&] { return real(path, mode); });
}

int CallRmdir(const char* path) {
  static auto* const real = Real<int(const char*)>("rmdir");
  return Watched("rmdir", Whole(path), [&] { return real(path); });
}

int CallSymlink(const char* target, const char* path) {
  static auto* const real = Real<int(const char*, const char*)>("symlink");
  return Watched("link", Whole(path), [&] { return real(target, path); });
}

int CallTruncate(const char* path, off_t size) {
  static auto* const real = Real<int(const char*, off_t)>("truncate");
  return Watched("truncate", Whole(path), [&] { return real(path, size); });
}
}
