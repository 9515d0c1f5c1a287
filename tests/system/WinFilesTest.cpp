#include <windows.h>
#include <aclapi.h>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sddl.h>
#include <thread>

#include "settings/Profile.h"
#include "support/TemporaryFolder.h"
#include "system/DiskFiles.h"
#include "system/Process.h"
#include "system/WinText.h"

namespace zek {
namespace {

// Another program that has the file open and does not let it be replaced.
HANDLE Hold(const std::string& path) {
  return ::CreateFileW(WideFromUtf8(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

std::wstring AccessTo(const std::wstring& path) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  ::GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                          nullptr, nullptr, &descriptor);
  wchar_t* text = nullptr;
  ::ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1,
                                                         DACL_SECURITY_INFORMATION, &text, nullptr);
  const std::wstring access = text == nullptr ? L"" : text;
  ::LocalFree(text);
  ::LocalFree(descriptor);
  return access;
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
  EXPECT_EQ(refused->reason, FileError::Reason::InUse);
  const auto kept = files.Remove(path);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->reason, FileError::Reason::InUse);
  EXPECT_EQ(test::NamesIn(temporary), std::vector<std::string>{"held"});
  EXPECT_EQ(files.Read(path).bytes, "old");

  // A program that holds it only briefly does no harm.
  std::thread other([holder] { ::CloseHandle(holder); });
  EXPECT_FALSE(files.Write(path, "new"));
  other.join();
  EXPECT_EQ(files.Read(path).bytes, "new");
}

// A process id is a multiple of four, so this process never existed here. A new file may be another
// computer's.
TEST(WinFiles, OnlyWhatAKilledProgramLeftIsSwept) {
  const test::TemporaryFolder temporary;
  DiskFiles files;
  const CreatedFile running = files.Create(temporary.Name() + "running");
  EXPECT_FALSE(running.file->Append("half"));
  for (const char* const name : {"new.zvtmp4294967295", "old.zvtmp4294967295"})
    std::ofstream(temporary.Path() / name) << "half";
  std::filesystem::last_write_time(
      temporary.Path() / "old.zvtmp4294967295",
      std::filesystem::file_time_type::clock::now() - std::chrono::hours(2));
  EXPECT_FALSE(files.Write(temporary.Name() + "x", "new"));
  EXPECT_FALSE(running.file->Commit());
  EXPECT_EQ(test::NamesIn(temporary),
            (std::vector<std::string>{"new.zvtmp4294967295", "running", "x"}));
}

// A file's access rights are set when it is created and stay when it is replaced.
TEST(WinFiles, AReplacedFileKeepsItsAccess) {
  const test::TemporaryFolder temporary;
  const std::string path = temporary.Name() + "settings";
  const std::wstring wide = WideFromUtf8(path);
  DiskFiles files;
  EXPECT_FALSE(files.Write(path, "old"));
  PSECURITY_DESCRIPTOR own = nullptr;  // differs from the folder's
  ASSERT_NE(::ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;BA)(A;;FA;;;WD)",
                                                                   SDDL_REVISION_1, &own, nullptr),
            0);
  ASSERT_NE(::SetFileSecurityW(wide.c_str(), DACL_SECURITY_INFORMATION, own), 0);
  ::LocalFree(own);
  const std::wstring before = AccessTo(wide);
  EXPECT_FALSE(files.Write(path, "new"));
  EXPECT_EQ(AccessTo(wide), before);
  EXPECT_FALSE(files.Write(temporary.Name() + "other", ""));
  EXPECT_NE(AccessTo(WideFromUtf8(temporary.Name() + "other")), before);
}

// The calls of the system would write in place and drop blank lines.
TEST(WinFiles, SettingsAreReplacedAsAWhole) {
  const test::TemporaryFolder temporary;
  const std::string path = temporary.Name() + "ZEKView.INI";
  DiskFiles files;
  const std::unique_ptr<Profile> profile = OpenSettingsFile(files, path);
  EXPECT_FALSE(files.Write(path, "; c\r\n\r\n[s]  x\r\n k = 1\r\n"));
  EXPECT_EQ(profile->ReadIni("s", "k", ""), "1");
  EXPECT_FALSE(profile->WriteIni("s", "k", "2"));
  EXPECT_EQ(profile->ReadIni("s", "k", ""), "2");
  EXPECT_EQ(files.Read(path).bytes, "; c\r\n\r\n[s]  x\r\nk=2\r\n");
  const HANDLE holder = Hold(path);
  ASSERT_NE(holder, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(profile->WriteIni("s", "k", "3"));
  ::CloseHandle(holder);
  EXPECT_EQ(profile->ReadIni("s", "k", ""), "2");
}

TEST(WinFiles, ADirectoryHasOneNameHoweverItIsSpelt) {
  const test::TemporaryFolder temporary;
  const std::string name = Utf8Of(temporary.Path());
  std::wstring brief(MAX_PATH, L'\0');
  brief.resize(::GetShortPathNameW(WideFromUtf8(name).c_str(), brief.data(), MAX_PATH));
  std::string slashes = name;
  std::replace(slashes.begin(), slashes.end(), '\\', '/');
  for (const std::string& other :
       {name + "\\", slashes + "/./", UpperCase(name), Utf8FromWide(brief), "\\\\?\\" + name})
    EXPECT_EQ(CanonicalDirectory(other), CanonicalDirectory(name)) << other;
}

TEST(WinFiles, DevicesAreNoFiles) {
  DiskFiles files;
  EXPECT_TRUE(files.Read("NUL").error);
  EXPECT_FALSE(files.Exists("NUL"));
}

TEST(WinFiles, ErrorCodesHaveTheirReasons) {
  using Reason = FileError::Reason;
  const std::pair<DWORD, Reason> cases[] = {
      {ERROR_FILE_NOT_FOUND, Reason::Missing},
      {ERROR_PATH_NOT_FOUND, Reason::Missing},
      {ERROR_ACCESS_DENIED, Reason::Denied},
      {ERROR_SHARING_VIOLATION, Reason::InUse},
      {ERROR_FILENAME_EXCED_RANGE, Reason::NameTooLong},
      {ERROR_DISK_FULL, Reason::Full},
      {ERROR_WRITE_PROTECT, Reason::ReadOnly},
      {ERROR_INVALID_FUNCTION, Reason::Other},
  };
  for (const auto& [code, reason] : cases) {
    EXPECT_EQ(FileErrorOf("x", code).reason, reason) << code;
    EXPECT_NE(FileErrorOf("x", code).systemMessage, "") << code;
  }
  EXPECT_EQ(FileErrorOf("C:/" + std::string(300, 'x'), ERROR_PATH_NOT_FOUND).reason,
            Reason::NameTooLong);
}

}  // namespace
}  // namespace zek
