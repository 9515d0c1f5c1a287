#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "support/TemporaryFolder.h"
#include "system/DiskFiles.h"
#include "system/Process.h"

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

TEST_F(PosixFilesTest, SpellingsOfADirectoryHaveOneName) {
  std::filesystem::create_directory_symlink(".", folder + "link");
  EXPECT_EQ(CanonicalDirectory(folder + "link/./link"), CanonicalDirectory(folder));
  EXPECT_EQ(CanonicalDirectory("nix"), "nix");
}

TEST_F(PosixFilesTest, APipeIsRefusedInsteadOfWaitedFor) {
  ASSERT_EQ(::mkfifo((folder + "pipe").c_str(), 0600), 0);
  EXPECT_TRUE(files.Read(folder + "pipe").error);
}

TEST_F(PosixFilesTest, AFullDiskIsAnError) { EXPECT_TRUE(files.Write("/dev/full/x", "x")); }

TEST_F(PosixFilesTest, APieceThatDoesNotFitLeavesThoseBefore) {
  const auto before = std::signal(SIGXFSZ, SIG_IGN);  // so that a write beyond the limit fails
  rlimit old = {};
  ::getrlimit(RLIMIT_FSIZE, &old);
  const CreatedFile created = files.Create(folder + "x");
  EXPECT_FALSE(created.file->Append(std::string(3000, 'a')));
  rlimit small = old;
  small.rlim_cur = 4096;
  ::setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_TRUE(created.file->Append(std::string(3000, 'b')));
  EXPECT_FALSE(files.Append(folder + "y", std::string(3000, 'a')));
  EXPECT_TRUE(files.Append(folder + "y", std::string(3000, 'b')));
  ::setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, before);
  EXPECT_FALSE(created.file->Append("c"));
  EXPECT_FALSE(created.file->Commit());
  EXPECT_EQ(files.Read(folder + "x").bytes, std::string(3000, 'a') + "c");
  EXPECT_EQ(files.Read(folder + "y").bytes, std::string(3000, 'a'));
}

}  // namespace
}  // namespace zek
