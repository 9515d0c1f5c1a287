#include <filesystem>
#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"
#include "system/DiskFiles.h"

namespace zek {
namespace {

class DiskFilesTest : public ::testing::Test {
 protected:
  test::TemporaryFolder temporary;
  std::string folder = temporary.Name();
  DiskFiles files;
};

TEST_F(DiskFilesTest, WritesReadsListsAndRemoves) {
  const std::string bytes = std::string("a\0b\r\n\xFF\x1A", 7) + std::string(100'000, 'x');
  EXPECT_FALSE(files.Write(folder + "b", bytes));
  EXPECT_FALSE(files.Write(folder + "a", ""));
  EXPECT_EQ(files.Read(folder + "b").bytes, bytes);
  EXPECT_TRUE(files.Exists(folder + "a"));
  EXPECT_FALSE(files.Append(folder + "a", "1") || files.Append(folder + "a", "\r\n2"));
  EXPECT_EQ(files.Read(folder + "a").bytes, "1\r\n2");
  EXPECT_TRUE(files.Append(folder, "x") && files.Append(folder + "nix/a", "x"));
  EXPECT_FALSE(files.Exists(folder)) << "a folder is no file";
  EXPECT_EQ(files.List(folder), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(test::NamesIn(temporary), files.List(folder)) << "nothing left beside";
  EXPECT_FALSE(files.Remove(folder + "a"));
  EXPECT_FALSE(files.Remove(folder + "a")) << "what is not there is no error";
  EXPECT_TRUE(files.Remove(folder + "nix/a")) << "in a folder that is gone it may be there";
  EXPECT_FALSE(files.Exists(folder + "a"));
}

TEST_F(DiskFilesTest, NamesInAnyScript) {
  const std::string name = "Björk \xE6\x97\xA5\xE6\x9C\xAC.TXT";
  EXPECT_FALSE(files.Write(folder + name, "x"));
  EXPECT_EQ(files.List(folder), std::vector<std::string>{name});
  EXPECT_EQ(files.Read(folder + name).bytes, "x");
  EXPECT_FALSE(files.Remove(folder + name));
  EXPECT_FALSE(files.Exists(folder + name));
}

TEST_F(DiskFilesTest, ErrorsNameTheFileAndTheReason) {
  const FileContent missing = files.Read(folder + "nix");
  ASSERT_TRUE(missing.error);
  EXPECT_EQ(missing.error->path, folder + "nix");
  EXPECT_EQ(missing.error->reason, FileError::Reason::Missing);
  EXPECT_NE(missing.error->systemMessage, "");
  ASSERT_TRUE(files.Read(folder).error);
  const auto noFolder = files.Write(folder + "nix/file", "x");
  ASSERT_TRUE(noFolder);
  EXPECT_EQ(noFolder->reason, FileError::Reason::Missing);
}

TEST_F(DiskFilesTest, AFileThatIsTooLargeIsNotRead) {
  EXPECT_FALSE(files.Write(folder + "x", ""));
  std::filesystem::resize_file(temporary.Path() / "x", kLargestFile);
  EXPECT_EQ(files.Read(folder + "x").bytes.size(), std::size_t{kLargestFile});
  std::filesystem::resize_file(temporary.Path() / "x", std::uintmax_t{kLargestFile} + 1);
  EXPECT_TRUE(files.Read(folder + "x").error);
}

TEST_F(DiskFilesTest, AFailedWriteLeavesTheOldFileAndNothingElse) {
  std::filesystem::create_directory(temporary.Path() / "taken");  // a file cannot replace a folder
  std::filesystem::create_directory(temporary.Path() / "taken" / "inside");
  EXPECT_TRUE(files.Write(folder + "taken", "x"));
  EXPECT_EQ(test::NamesIn(temporary), std::vector<std::string>{"taken"});
}

TEST_F(DiskFilesTest, AFileWrittenInPiecesIsThereOnlyWhenCommitted) {
  EXPECT_FALSE(files.Write(folder + "x", "old"));
  {
    const CreatedFile dropped = files.Create(folder + "x");
    ASSERT_TRUE(dropped.file);
    EXPECT_FALSE(dropped.file->Append("half"));
    EXPECT_EQ(test::NamesIn(temporary).size(), 2U);
    EXPECT_EQ(files.List(folder), std::vector<std::string>{"x"}) << "it is not listed as a file";
    EXPECT_EQ(files.Read(folder + "x").bytes, "old");
  }
  EXPECT_EQ(test::NamesIn(temporary), std::vector<std::string>{"x"}) << "nothing left beside";
  const CreatedFile created = files.Create(folder + "x");
  EXPECT_FALSE(created.file->Append("one "));
  EXPECT_FALSE(created.file->Append("two"));
  EXPECT_FALSE(created.file->Commit());
  EXPECT_EQ(files.Read(folder + "x").bytes, "one two");
  EXPECT_TRUE(files.Create(folder + "nix/x").error);
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
