#include <filesystem>
#include <gtest/gtest.h>

#include "app/DiskFiles.h"
#include "support/TemporaryFolder.h"

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
  EXPECT_FALSE(files.Exists(folder)) << "a folder is no file";
  EXPECT_EQ(files.List(folder), (std::vector<std::string>{"a", "b"})) << "nothing left beside";
  EXPECT_FALSE(files.Remove(folder + "a"));
  EXPECT_FALSE(files.Remove(folder + "a")) << "what is not there is no error";
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

TEST_F(DiskFilesTest, AFailedWriteLeavesTheOldFileAndNothingElse) {
  std::filesystem::create_directory(temporary.Path() / "taken");  // nothing moves over a folder
  std::filesystem::create_directory(temporary.Path() / "taken" / "inside");
  EXPECT_TRUE(files.Write(folder + "taken", "x"));
  EXPECT_EQ(files.List(folder), std::vector<std::string>{"taken"});
}

}  // namespace
}  // namespace zek
