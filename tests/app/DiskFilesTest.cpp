#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "app/DiskFiles.h"

namespace zek {
namespace {

class DiskFilesTest : public ::testing::Test {
 protected:
  DiskFilesTest() {
    std::string name = (std::filesystem::temp_directory_path() / "zekview-XXXXXX").string();
    folder = std::string(::mkdtemp(name.data())) + "/";
  }

  void TearDown() override { std::filesystem::remove_all(folder); }

  std::string folder;
  DiskFiles files;
};

TEST_F(DiskFilesTest, WritesReadsListsAndRemoves) {
  const std::string bytes = std::string("a\0b\r\n\xFF", 6) + std::string(100'000, 'x');
  EXPECT_FALSE(files.Write(folder + "b", bytes));
  EXPECT_FALSE(files.Write(folder + "a", ""));
  EXPECT_EQ(files.Read(folder + "b").bytes, bytes);
  EXPECT_TRUE(files.Exists(folder + "a"));
  EXPECT_FALSE(files.Exists(folder)) << "a folder is no file";
  EXPECT_EQ(files.List(folder), (std::vector<std::string>{"a", "b"})) << "nothing left beside";
  EXPECT_FALSE(files.Remove(folder + "a"));
  EXPECT_FALSE(files.Remove(folder + "a")) << "what is not there is no error";
  EXPECT_FALSE(files.Exists(folder + "a"));
}

TEST_F(DiskFilesTest, ErrorsNameTheFileAndTheReason) {
  const FileContent missing = files.Read(folder + "nix");
  ASSERT_TRUE(missing.error);
  EXPECT_EQ(missing.error->path, folder + "nix");
  EXPECT_EQ(missing.error->reason, FileError::Reason::Missing);
  ASSERT_TRUE(files.Read(folder).error);
  const auto noFolder = files.Write(folder + "nix/file", "x");
  ASSERT_TRUE(noFolder);
  EXPECT_EQ(noFolder->reason, FileError::Reason::Missing);
}

TEST_F(DiskFilesTest, AReplacedFileKeepsItsPermissionsAndLinksHold) {
  using std::filesystem::perms;
  EXPECT_FALSE(files.Write(folder + "secret", "old"));
  std::filesystem::permissions(folder + "secret", perms::owner_read | perms::owner_write);
  std::filesystem::create_symlink("secret", folder + "link");
  EXPECT_FALSE(files.Write(folder + "link", "new"));
  EXPECT_EQ(files.Read(folder + "secret").bytes, "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder + "link"));
  EXPECT_EQ(std::filesystem::status(folder + "secret").permissions(),
            perms::owner_read | perms::owner_write);
}

TEST_F(DiskFilesTest, APipeIsRefusedInsteadOfWaitedFor) {
  ASSERT_EQ(::mkfifo((folder + "pipe").c_str(), 0600), 0);
  EXPECT_TRUE(files.Read(folder + "pipe").error);
}

TEST_F(DiskFilesTest, AFailedWriteLeavesTheOldFileAndNothingElse) {
  std::filesystem::create_directory(folder + "taken");  // a rename over a folder fails
  std::filesystem::create_directory(folder + "taken/inside");
  EXPECT_TRUE(files.Write(folder + "taken", "x"));
  EXPECT_EQ(files.List(folder), std::vector<std::string>{"taken"});
  const auto full = files.Write("/dev/full/x", "x");
  EXPECT_TRUE(full);
}

TEST_F(DiskFilesTest, AFileWrittenInPiecesIsThereOnlyWhenCommitted) {
  EXPECT_FALSE(files.Write(folder + "x", "old"));
  {
    const CreatedFile dropped = files.Create(folder + "x");
    ASSERT_TRUE(dropped.file);
    EXPECT_FALSE(dropped.file->Append("half"));
    EXPECT_EQ(files.Read(folder + "x").bytes, "old");
  }
  EXPECT_EQ(files.List(folder), std::vector<std::string>{"x"}) << "nothing left beside";
  const CreatedFile created = files.Create(folder + "x");
  EXPECT_FALSE(created.file->Append("one "));
  EXPECT_FALSE(created.file->Append("two"));
  EXPECT_FALSE(created.file->Commit());
  EXPECT_EQ(files.Read(folder + "x").bytes, "one two");
  EXPECT_TRUE(files.Create(folder + "nix/x").error);
}

TEST_F(DiskFilesTest, APieceThatDoesNotFitLeavesThoseBefore) {
  const auto before = std::signal(SIGXFSZ, SIG_IGN);  // a write beyond the limit fails then
  rlimit old = {};
  ::getrlimit(RLIMIT_FSIZE, &old);
  const CreatedFile created = files.Create(folder + "x");
  EXPECT_FALSE(created.file->Append(std::string(3000, 'a')));
  rlimit small = old;
  small.rlim_cur = 4096;
  ::setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_TRUE(created.file->Append(std::string(3000, 'b')));
  ::setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, before);
  EXPECT_FALSE(created.file->Append("c"));
  EXPECT_FALSE(created.file->Commit());
  EXPECT_EQ(files.Read(folder + "x").bytes, std::string(3000, 'a') + "c");
}

TEST_F(DiskFilesTest, ADirectoryIsMadeOnce) {
  EXPECT_FALSE(files.MakeDirectory(folder + "Batch"));
  EXPECT_FALSE(files.MakeDirectory(folder + "Batch"));
  EXPECT_FALSE(files.Write(folder + "file", ""));
  EXPECT_TRUE(files.MakeDirectory(folder + "file"));
  EXPECT_TRUE(files.MakeDirectory(folder + "nix/Batch"));
}

}  // namespace
}  // namespace zek
