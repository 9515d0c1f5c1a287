#include "system/DiskFiles.h"
#include "system/FileErrors.h"
#include "system/WinHandle.h"
#include "system/WinHeld.h"
#include "system/WinText.h"

namespace zek {

FileContent DiskFiles::Read(const std::string& path) const {
  HANDLE opened = INVALID_HANDLE_VALUE;
  WhileHeld([&opened, wide = WideFromUtf8(path)] {
    opened = ::CreateFileW(wide.c_str(), GENERIC_READ,
                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                           OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    // What is denied here is a matter of rights and stays so.
    if (opened == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_ACCESS_DENIED) return true;
    return opened != INVALID_HANDLE_VALUE;
  });
  const Handle file(opened);
  if (!file.IsOpen()) return {{}, FileErrorOf(path, ::GetLastError())};
  if (::GetFileType(file.Get()) != FILE_TYPE_DISK) {  // a pipe could make us wait
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
  if (code == ERROR_FILE_NOT_FOUND) return std::nullopt;  // not so that its folder is not there
  return FileErrorOf(path, HeldReason(code, wide));
}

}  // namespace zek
