#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "app/DiskFiles.h"
#include "support/TemporaryFolder.h"

namespace zek {
namespace {

class PosixFilesTest : public ::testing::Test {
 protected:
  test::TemporaryFolder temporary;
  std::string folder = temporary.Name();
  DiskFiles files;
};

TEST_F(PosixFilesTest, AReplacedFileKeepsItsPermissionsAndLinksHold) {
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

TEST_F(PosixFilesTest, APipeIsRefusedInsteadOfWaitedFor) {
  ASSERT_EQ(::mkfifo((folder + "pipe").c_str(), 0600), 0);
  EXPECT_TRUE(files.Read(folder + "pipe").error);
}

TEST_F(PosixFilesTest, AFullDiskIsAnError) { EXPECT_TRUE(files.Write("/dev/full/x", "x")); }

}  // namespace
}  // namespace zek
