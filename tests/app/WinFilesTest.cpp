#include <windows.h>
#include <gtest/gtest.h>
#include <thread>

#include "app/DiskFiles.h"
#include "app/WinFileError.h"
#include "app/WinText.h"
#include "support/TemporaryFolder.h"

namespace zek {
namespace {

// Another program that has the file open and lets nobody replace it.
HANDLE Hold(const std::string& path) {
  return ::CreateFileW(WideFromUtf8(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

TEST(WinFiles, AFileThatIsHeldOpenIsReadButNotReplaced) {
  const test::TemporaryFolder temporary;
  const std::string path = temporary.Name() + "held";
  DiskFiles files;
  EXPECT_FALSE(files.Write(path, "old"));
  const HANDLE holder = Hold(path);
  ASSERT_NE(holder, INVALID_HANDLE_VALUE);
  EXPECT_EQ(files.Read(path).bytes, "old");
  const auto refused = files.Write(path, "new");
  ASSERT_TRUE(refused);
  EXPECT_EQ(refused->reason, FileError::Reason::Denied);
  EXPECT_EQ(files.List(temporary.Name()), std::vector<std::string>{"held"});
  EXPECT_EQ(files.Read(path).bytes, "old");

  // Whoever holds it for a moment only does no harm.
  std::thread other([holder] { ::CloseHandle(holder); });
  EXPECT_FALSE(files.Write(path, "new"));
  other.join();
  EXPECT_EQ(files.Read(path).bytes, "new");
}

TEST(WinFiles, DevicesAreNoFiles) {
  DiskFiles files;
  EXPECT_TRUE(files.Read("NUL").error);
  EXPECT_FALSE(files.Exists("NUL"));
}

TEST(WinFiles, ErrorCodesHaveTheirReasons) {
  using Reason = FileError::Reason;
  const std::pair<DWORD, Reason> cases[] = {
      {ERROR_FILE_NOT_FOUND, Reason::Missing}, {ERROR_PATH_NOT_FOUND, Reason::Missing},
      {ERROR_ACCESS_DENIED, Reason::Denied},   {ERROR_SHARING_VIOLATION, Reason::Denied},
      {ERROR_DISK_FULL, Reason::Full},         {ERROR_WRITE_PROTECT, Reason::ReadOnly},
      {ERROR_INVALID_FUNCTION, Reason::Other},
  };
  for (const auto& [code, reason] : cases) {
    EXPECT_EQ(WinFileError("x", code).reason, reason) << code;
    EXPECT_NE(WinFileError("x", code).systemMessage, "") << code;
  }
}

}  // namespace
}  // namespace zek
