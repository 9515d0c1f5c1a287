#include <windows.h>
#include <aclapi.h>
#include <algorithm>
#include <memory>
#include <utility>

#include "system/BesideName.h"
#include "system/DiskFiles.h"
#include "system/FileErrors.h"
#include "system/WinHandle.h"
#include "system/WinHeld.h"
#include "system/WinText.h"

namespace zek {
namespace {

bool WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 20));
    if (::WriteFile(file, bytes.data(), size, &written, nullptr) == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

// The new file is never more open to others than the one that it replaces. The system's call that
// sees to that by itself replaces the file in several steps, between which there is none.
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
  std::wstring name = beside;  // the call wants one that it could change
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

// What killed programs left in the directory: files of processes that are gone. One that a program
// on another computer is writing is open and can't be deleted.
void Sweep(const std::wstring& target) {
  const std::size_t separator = target.find_last_of(L"/\\");
  const std::wstring directory =
      separator == std::wstring::npos ? std::wstring() : target.substr(0, separator + 1);
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW((directory + L"*.zvtmp*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const std::string name = Utf8FromWide(found.cFileName);
    if (IsBesideName(name) && !IsRunning(BesideProcess(name))) {
      ::DeleteFileW((directory + found.cFileName).c_str());
    }
  } while (::FindNextFileW(search, &found) != 0);
  ::FindClose(search);
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
  bool torn_ = false;  // it ends in bytes that could not be taken back
  bool inPlace_ = false;
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

}  // namespace zek
