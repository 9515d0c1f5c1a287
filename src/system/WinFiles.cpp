#include <windows.h>
#include <aclapi.h>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "system/BesideName.h"
#include "system/DiskFiles.h"
#include "system/WinHandle.h"
#include "system/WinText.h"

namespace zek {

// Not the standard library's mapping: it reports a disconnected network drive as a missing file,
// and its messages are in the code page.
FileError FileErrorOf(const std::string& path, int code) {
  using Reason = FileError::Reason;
  Reason reason = Reason::Other;
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:  // a disconnected drive has another code
      reason = Reason::Missing;
      break;
    case ERROR_ACCESS_DENIED:
      reason = Reason::Denied;
      break;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      reason = Reason::InUse;
      break;
    case ERROR_FILENAME_EXCED_RANGE:
      reason = Reason::NameTooLong;
      break;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      reason = Reason::Full;
      break;
    case ERROR_WRITE_PROTECT:
      reason = Reason::ReadOnly;
      break;
    default:
      break;
  }
  // The system reports a missing folder for a path that is too long.
  constexpr std::size_t longest = MAX_PATH - 2;
  if (code == ERROR_PATH_NOT_FOUND && WideFromUtf8(path).size() > longest) {
    reason = Reason::NameTooLong;
  }
  return {path, reason, SystemMessage(code)};
}

/// Calls `call`, and repeats it for about a second while another program has the file open: virus
/// scanners, indexers and backups open files for a moment right after a write. Returns false, with
/// the system's last error set, if it keeps failing.
bool WhileHeld(const std::function<bool()>& call);

/// Returns the true reason for `code`: the system reports "access denied" when it can't replace or
/// delete a file because another program has it open.
unsigned long HeldReason(unsigned long code, const std::wstring& path);

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

namespace {

// Returns how many bytes were written: all of them, or fewer after an error.
std::size_t WriteAll(HANDLE file, std::string_view bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    DWORD written = 0;
    const std::string_view next = bytes.substr(done, 1U << 20);
    const bool taken =
        ::WriteFile(file, next.data(), static_cast<DWORD>(next.size()), &written, nullptr) != 0;
    done += written;
    if (!taken) break;
  }
  return done;
}

// Copies the access rights of the old file to the new one. ReplaceFile would do so too, but works
// in several steps, between which no file of that name exists.
void TakeAccessOf(const std::wstring& target, const std::wstring& beside) {
  PACL access = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (::GetNamedSecurityInfoW(target.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                              nullptr, &access, nullptr, &descriptor) != ERROR_SUCCESS) {
    return;
  }
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  ::GetSecurityDescriptorControl(descriptor, &control, &revision);
  const DWORD inherits = (control & SE_DACL_PROTECTED) != 0 ? PROTECTED_DACL_SECURITY_INFORMATION
                                                            : UNPROTECTED_DACL_SECURITY_INFORMATION;
  std::wstring name = beside;  // the call needs a mutable name
  ::SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inherits,
                          nullptr, nullptr, access, nullptr);
  ::LocalFree(descriptor);
}

bool IsRunning(DWORD process) {
  const HANDLE handle = ::OpenProcess(SYNCHRONIZE, FALSE, process);
  if (handle == nullptr) return ::GetLastError() != ERROR_INVALID_PARAMETER;  // no such process
  const bool running = ::WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
  ::CloseHandle(handle);
  return running;
}

// True if the file was written in the last hour, or later by another computer's clock.
bool IsNew(const WIN32_FIND_DATAW& found) {
  constexpr ULONGLONG hour = 3600ULL * 10'000'000;  // such times count 100 ns
  const auto number = [](const FILETIME& time) {
    return (static_cast<ULONGLONG>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
  };
  FILETIME now{};
  ::GetSystemTimeAsFileTime(&now);
  return number(found.ftLastWriteTime) + hour > number(now);
}

// Deletes temporary files left by killed programs: their processes no longer run. Another
// computer's processes are not known here. While it writes a file the file is open, so that
// deleting it fails; a new one may be about to be renamed.
void Sweep(const std::wstring& target) {
  const std::size_t separator = target.find_last_of(L"/\\");
  const std::wstring directory =
      separator == std::wstring::npos ? std::wstring() : target.substr(0, separator + 1);
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW((directory + L"*.zvtmp*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const std::string name = Utf8FromWide(found.cFileName);
    if (IsBesideName(name) && !IsRunning(BesideProcess(name)) && !IsNew(found)) {
      ::DeleteFileW((directory + found.cFileName).c_str());
    }
  } while (::FindNextFileW(search, &found) != 0);
  ::FindClose(search);
}

class WinOutputFile final : public OutputFile {
 public:
  // `path` is for messages; `beside` is the temporary file that replaces `target`.
  WinOutputFile(HANDLE file, std::string path, std::wstring target, std::wstring beside)
      : file_(file),
        path_(std::move(path)),
        target_(std::move(target)),
        beside_(std::move(beside)) {}
  WinOutputFile(const WinOutputFile&) = delete;
  WinOutputFile& operator=(const WinOutputFile&) = delete;
  ~WinOutputFile() override {
    file_.Close();  // an open file can't be deleted
    if (!inPlace_) ::DeleteFileW(beside_.c_str());
  }

  std::optional<FileError> Append(std::string_view bytes) override {
    if (!torn_ && WriteAll(file_.Get(), bytes) == bytes.size()) {
      size_.QuadPart += static_cast<LONGLONG>(bytes.size());
      return std::nullopt;
    }
    const DWORD code = torn_ ? ERROR_WRITE_FAULT : ::GetLastError();
    // Roll back a partial write.
    torn_ = ::SetFilePointerEx(file_.Get(), size_, nullptr, FILE_BEGIN) == 0 ||
            ::SetEndOfFile(file_.Get()) == 0;
    return FileErrorOf(path_, code);
  }

  std::optional<FileError> Commit() override {
    if (torn_) return FileErrorOf(path_, ERROR_WRITE_FAULT);
    if (::FlushFileBuffers(file_.Get()) == 0 || !file_.Close()) {
      return FileErrorOf(path_, ::GetLastError());
    }
    const bool moved = WhileHeld([this] {
      return ::MoveFileExW(beside_.c_str(), target_.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    });
    if (!moved) return FileErrorOf(path_, HeldReason(::GetLastError(), target_));
    inPlace_ = true;
    return std::nullopt;
  }

 private:
  Handle file_;
  std::string path_;
  std::wstring target_;
  std::wstring beside_;
  LARGE_INTEGER size_{};
  bool torn_ = false;  // a partial write could not be rolled back
  bool inPlace_ = false;
};

class WinLock final : public FileLock {
 public:
  explicit WinLock(HANDLE file) : file_(file) {}

  // Locks a byte far beyond the file's end, because a locked one can't be read.
  bool Take() {
    OVERLAPPED place{};
    place.OffsetHigh = 1U << 30;
    return file_.IsOpen() &&
           ::LockFileEx(file_.Get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                        &place) != 0;
  }

 private:
  Handle file_;
};

}  // namespace

CreatedFile DiskFiles::Create(const std::string& path) {
  const std::wstring target = WideFromUtf8(path);
  Sweep(target);
  for (int attempt = 1;; ++attempt) {
    const std::wstring beside = WideFromUtf8(BesideName(path, ::GetCurrentProcessId(), attempt));
    const HANDLE file = ::CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      TakeAccessOf(target, beside);
      return {std::make_unique<WinOutputFile>(file, path, target, beside), std::nullopt};
    }
    const DWORD code = ::GetLastError();
    if (code != ERROR_FILE_EXISTS || attempt == kMostBesideNames) {
      return {nullptr, FileErrorOf(path, code)};
    }
  }
}

std::optional<FileError> DiskFiles::Append(const std::string& path, std::string_view bytes) {
  constexpr DWORD others = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const std::wstring wide = WideFromUtf8(path);
  const auto open = [&wide](DWORD access, DWORD how) {
    return ::CreateFileW(wide.c_str(), access, others, nullptr, how, FILE_ATTRIBUTE_NORMAL,
                         nullptr);
  };
  Handle file(open(FILE_APPEND_DATA | FILE_READ_ATTRIBUTES, OPEN_ALWAYS));
  if (!file.IsOpen()) return FileErrorOf(path, ::GetLastError());
  LARGE_INTEGER before{};
  if (::GetFileSizeEx(file.Get(), &before) == 0) return FileErrorOf(path, ::GetLastError());
  const std::size_t written = WriteAll(file.Get(), bytes);
  if (written == bytes.size() && file.Close()) return std::nullopt;
  const DWORD code = ::GetLastError();
  file.Close();
  // Roll back a partial write, unless another program has appended something too.
  const Handle whole(open(GENERIC_WRITE, OPEN_EXISTING));
  const LONGLONG own = before.QuadPart + static_cast<LONGLONG>(written);
  LARGE_INTEGER after{};
  if (written > 0 && whole.IsOpen() && ::GetFileSizeEx(whole.Get(), &after) != 0 &&
      after.QuadPart == own && ::SetFilePointerEx(whole.Get(), before, nullptr, FILE_BEGIN) != 0) {
    ::SetEndOfFile(whole.Get());
  }
  return FileErrorOf(path, code);
}

FileContent DiskFiles::Read(const std::string& path) const {
  HANDLE opened = INVALID_HANDLE_VALUE;
  WhileHeld([&opened, wide = WideFromUtf8(path)] {
    opened = ::CreateFileW(wide.c_str(), GENERIC_READ,
                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                           OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    // For reading, "access denied" means missing rights: do not try again.
    if (opened == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_ACCESS_DENIED) return true;
    return opened != INVALID_HANDLE_VALUE;
  });
  const Handle file(opened);
  if (!file.IsOpen()) return {{}, FileErrorOf(path, ::GetLastError())};
  if (::GetFileType(file.Get()) != FILE_TYPE_DISK) {  // reading a pipe could block
    return {{}, FileErrorOf(path, ERROR_BAD_FILE_TYPE)};
  }
  LARGE_INTEGER size{};
  if (::GetFileSizeEx(file.Get(), &size) == 0) return {{}, FileErrorOf(path, ::GetLastError())};
  if (size.QuadPart > static_cast<LONGLONG>(kLargestFile)) {
    return {{}, FileError{path, FileError::Reason::TooLarge, {}}};
  }
  FileContent content;
  content.bytes.resize(static_cast<std::size_t>(size.QuadPart));
  std::size_t used = 0;
  for (DWORD got = 1; got > 0 && used < content.bytes.size(); used += got) {
    const auto rest = static_cast<DWORD>(content.bytes.size() - used);
    if (::ReadFile(file.Get(), &content.bytes[used], rest, &got, nullptr) == 0) {
      return {{}, FileErrorOf(path, ::GetLastError())};
    }
  }
  content.bytes.resize(used);
  return content;
}

std::optional<FileError> DiskFiles::MakeDirectory(const std::string& path) {
  const std::wstring wide = WideFromUtf8(path);
  if (::CreateDirectoryW(wide.c_str(), nullptr) != 0) return std::nullopt;
  const DWORD code = ::GetLastError();
  const DWORD attributes = ::GetFileAttributesW(wide.c_str());
  const bool there =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (code == ERROR_ALREADY_EXISTS && there) return std::nullopt;
  return FileErrorOf(path, code);
}

std::optional<FileError> DiskFiles::Remove(const std::string& path) {
  const std::wstring wide = WideFromUtf8(path);
  if (WhileHeld([&wide] { return ::DeleteFileW(wide.c_str()) != 0; })) return std::nullopt;
  const DWORD code = ::GetLastError();
  if (code == ERROR_FILE_NOT_FOUND) return std::nullopt;  // a missing folder is an error
  return FileErrorOf(path, HeldReason(code, wide));
}

TakenLock DiskFiles::Lock(const std::string& path) {
  auto lock = std::make_unique<WinLock>(
      ::CreateFileW(WideFromUtf8(path).c_str(), GENERIC_READ,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!lock->Take()) return {nullptr, FileErrorOf(path, ::GetLastError())};
  return {std::move(lock), std::nullopt};
}

}  // namespace zek
