#include <gtest/gtest.h>
#include <sstream>

#include "commands/Commands.h"
#include "settings/TagPassword.h"
#include "support/TemporaryFolder.h"
#include "system/DiskFiles.h"
#include "system/Secret.h"

namespace zek::cli {
namespace {

// What the command makes of a password; the file keeps everything else, byte for byte.
TEST(PasswordCommand, EncryptsOrChangesNothing) {
  const struct {
    const char* input;
    const char* password;  // windows-1252; null: refused
  } cases[] = {{"Hemligt7\n", "Hemligt7"},
               {"p\xC3\xA5 ss;=\"x\" \r\nmore", "p\xE5 ss;=\"x\" "},
               {"", nullptr},
               {"\n", nullptr},
               {"p\xE5ss\n", nullptr},
               {"a\tb\n", nullptr},
               {"\xE2\x98\x83\n", nullptr}};
  const std::string before = "; \xE5\r\n[general]\n a = 1\r\npassword = old\r\n\r\n[Topics]\r\n";
  for (const auto& each : cases) {
    const test::TemporaryFolder folder;
    DiskFiles files;
    const std::string path = folder.Name() + "ZEKView.INI";
    ASSERT_FALSE(files.Write(path, before));
    std::istringstream in(each.input);
    std::ostringstream out;
    const bool done = CanEncrypt() && each.password != nullptr;
    EXPECT_EQ(SetTagPassword(files, path, in, {out, out}), done ? kDone : kWrongUsage);
    std::string after = files.Read(path).bytes;
    const std::unique_ptr<Profile> profile = OpenSettingsFile(files, path);
    EXPECT_TRUE(CanEncrypt() || WriteTagPassword(*profile, "x"));
    EXPECT_EQ(ReadTagPassword(*profile).text, done ? each.password : "old");
    EXPECT_EQ(out.str().find("emligt"), std::string::npos);
    if (done) {
      const std::size_t at = after.find("{dpapi}");
      ASSERT_NE(at, std::string::npos);
      after.replace(after.find('\r', at) - 24, 8, "AAAAAAAA");
      ASSERT_FALSE(files.Write(path, after));
      EXPECT_EQ(ReadTagPassword(*OpenSettingsFile(files, path)).kind, TagPassword::Kind::Lost);
      const std::size_t line = after.rfind('\n', at) + 1;
      after.replace(line, after.find("\r\n", at) - line, "password = old");
    }
    EXPECT_EQ(after, before);
  }
}

}  // namespace
}  // namespace zek::cli
