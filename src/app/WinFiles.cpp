#include <windows.h>
#include <algorithm>
#include <memory>
#include <utility>

#include "app/DiskFiles.h"
#include "app/WinFileError.h"
#include "app/WinText.h"

namespace zek {
namespace {

// Virus scanners, indexers and backups hold a file open for a moment right after it was written.
constexpr int kMostTries = 6;
constexpr DWORD kFirstPause = 10;  // ms, doubled from try to try: 310 ms in all

// Closes what it holds.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { Close(); }

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }
  // False when the system reports a late write error.
  bool Close() {
    const HANDLE handle = handle_;
    handle_ = INVALID_HANDLE_VALUE;
    return handle == INVALID_HANDLE_VALUE || ::CloseHandle(handle) != 0;
  }

 private:
  HANDLE handle_;
};

bool WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 20));
    if (::WriteFile(file, bytes.data(), size, &written, nullptr) == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

bool MoveOver(const std::wstring& from, const std::wstring& to) {
  DWORD pause = kFirstPause;
  for (int tries = 1;; ++tries, pause *= 2) {
    if (::MoveFileExW(from.c_str(), to.c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
      return true;
    }
    const DWORD code = ::GetLastError();
    const bool held = code == ERROR_ACCESS_DENIED || code == ERROR_SHARING_VIOLATION;
    if (!held || tries == kMostTries) return false;
    ::Sleep(pause);
    ::SetLastError(code);
  }
}

class WinOutputFile final : public OutputFile {
 public:
  // `path` is what messages name, `beside` is what is written until it replaces `target`.
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
    if (!torn_ && WriteAll(file_.Get(), bytes)) {
      size_.QuadPart += static_cast<LONGLONG>(bytes.size());
      return std::nullopt;
    }
    const DWORD code = torn_ ? ERROR_WRITE_FAULT : ::GetLastError();
    // What was written of these bytes goes again.
    torn_ = ::SetFilePointerEx(file_.Get(), size_, nullptr, FILE_BEGIN) == 0 ||
            ::SetEndOfFile(file_.Get()) == 0;
    return WinFileError(path_, code);
  }

  std::optional<FileError> Commit() override {
    if (torn_) return WinFileError(path_, ERROR_WRITE_FAULT);
    if (::FlushFileBuffers(file_.Get()) == 0 || !file_.Close() || !MoveOver(beside_, target_)) {
      return WinFileError(path_, ::GetLastError());
    }
    inPlace_ = true;
    return std::nullopt;
  }

 private:
  Handle file_;
  std::string path_;
  std::wstring target_;
  std::wstring beside_;
  LARGE_INTEGER size_{};
  bool torn_ = false;  // it ends in bytes that could not be taken back
  bool inPlace_ = false;
};

}  // namespace

FileContent DiskFiles::Read(const std::string& path) const {
  const Handle file(::CreateFileW(WideFromUtf8(path).c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) return {{}, WinFileError(path, ::GetLastError())};
  if (::GetFileType(file.Get()) != FILE_TYPE_DISK) {  // a pipe could make us wait
    return {{}, WinFileError(path, ERROR_BAD_FILE_TYPE)};
  }
  LARGE_INTEGER size{};
  if (::GetFileSizeEx(file.Get(), &size) == 0) return {{}, WinFileError(path, ::GetLastError())};
  if (size.QuadPart > static_cast<LONGLONG>(kLargestFile)) {
    return {{}, FileError{path, FileError::Reason::TooLarge, {}}};
  }
  FileContent content;
  content.bytes.resize(static_cast<std::size_t>(size.QuadPart));
  std::size_t used = 0;
  for (DWORD got = 1; got > 0 && used < content.bytes.size(); used += got) {
    const auto rest = static_cast<DWORD>(content.bytes.size() - used);
    if (::ReadFile(file.Get(), &content.bytes[used], rest, &got, nullptr) == 0) {
      return {{}, WinFileError(path, ::GetLastError())};
    }
  }
  content.bytes.resize(used);
  return content;
}

CreatedFile DiskFiles::Create(const std::string& path) {
  const std::wstring target = WideFromUtf8(path);
  const std::wstring beside = target + L".zvtmp" + std::to_wstring(::GetCurrentProcessId());
  const HANDLE file = ::CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return {nullptr, WinFileError(path, ::GetLastError())};
  return {std::make_unique<WinOutputFile>(file, path, target, beside), std::nullopt};
}

std::optional<FileError> DiskFiles::MakeDirectory(const std::string& path) {
  const std::wstring wide = WideFromUtf8(path);
  if (::CreateDirectoryW(wide.c_str(), nullptr) != 0) return std::nullopt;
  const DWORD code = ::GetLastError();
  const DWORD attributes = ::GetFileAttributesW(wide.c_str());
  const bool there =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (code == ERROR_ALREADY_EXISTS && there) return std::nullopt;
  return WinFileError(path, code);
}

std::optional<FileError> DiskFiles::Remove(const std::string& path) {
  if (::DeleteFileW(WideFromUtf8(path).c_str()) != 0) return std::nullopt;
  const DWORD code = ::GetLastError();
  if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) return std::nullopt;
  return WinFileError(path, code);
}

}  // namespace zek
