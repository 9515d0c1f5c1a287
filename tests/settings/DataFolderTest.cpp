#include <gtest/gtest.h>

#include "settings/DataFolder.h"
#include "support/MemoryFiles.h"
#include "system/Paths.h"

namespace zek {
namespace {

TEST(DataFolder, TheMarkerPointsToIt) {
  const struct {
    const char* marker = nullptr;  // none; "?": can't be read
    std::optional<std::string> dir;
    Folders folders;
  } cases[] = {
      {nullptr, {}, {"/bin/", "", "", false}},
      {nullptr, "/x", {WithSeparator("/x"), "", "", true}},
      {"[ZekView]\r\nFolder=/data/\r\nLanguage=044\r\n", {}, {"/data/", "/bin/", "044", false}},
      {"[ZekView]\r\nFolder=/V\xE4rme/\r\nLanguage=", {}, {"/V\xC3\xA4rme/", "/bin/", "", false}},
      {"[ZekView]\r\nFolder=/data\r\nLanguage=x/y\r\n", "/x/", {"/x/", "/bin/", "", true}},
      {"", {}, {"/bin/", "/bin/", "", false}},
      {"?", {}, {"/bin/", "/bin/", "", false, FileError{}}},
      {"?", "/x/", {"/x/", "/bin/", "", true}},
  };
  for (const auto& each : cases) {
    test::MemoryFiles files;
    if (each.marker != nullptr) files.files["/bin/datadir.ini"] = each.marker;
    if (each.marker != nullptr && each.marker[0] == '?') files.failReads = FileError::Reason::InUse;
    const Folders folders = FoldersOf(files, "/bin/", each.dir);
    EXPECT_EQ(folders.data, each.folders.data);
    EXPECT_EQ(folders.shipped, each.folders.shipped);
    EXPECT_EQ(folders.language, each.folders.language);
    EXPECT_EQ(folders.chosen, each.folders.chosen);
    EXPECT_EQ(folders.unknown.has_value(), each.folders.unknown.has_value());
    EXPECT_EQ(IsNew(files, folders), folders.Installed() && !each.dir && !folders.unknown);
  }
}

TEST(DataFolder, BeginsWithTheShippedSettings) {
  test::MemoryFiles files;
  files.files["/bin/ZEKView.INI"] = "[General]\r\nLanguage=046\r\nx=1\r\n";
  EXPECT_FALSE(BeginAfresh(files, {"/data/", "/bin/", "044", false}));
  EXPECT_EQ(files.files["/data/ZEKView.INI"], "[General]\r\nLanguage=044\r\nx=1\r\n");
}

// The older folder stays as it is, what is in the new one too, and the settings come last.
TEST(DataFolder, TakesOverWhatIsTheUsers) {
  const std::map<std::string, std::string> older = {
      {"/old/ZEKView.INI", "s"},    {"/old/a WDC.TXT", "1"},        {"/old/b SDC.TXT", "2"},
      {"/old/SENT.TXT", "3"},       {"/old/zekview.exe", "-"},      {"/old/README.txt", "-"},
      {"/old/SHA256SUMS.txt", "-"}, {"/old/zek_lang.046", "-"},     {"/old/zek_lang.358", "4"},
      {"/old/y.plan", "5"},         {"/old/History/c.TXT", "6"},    {"/old/Batch/d.TXT", "-"},
      {"/old/demo/e.TXT", "-"},     {"/old/Unfinished/f.TXT", "7"}, {"/old/Plans/g.plan", "8"}};
  const Folders folders{"/data/", "/bin/", "", false};
  test::MemoryFiles files;
  files.files = older;
  files.files["/bin/zek_lang.046"] = "new";
  files.files["/data/b SDC.TXT"] = "newer";
  const auto before = files.files;
  files.failWrites = FileError::Reason::Full;
  EXPECT_EQ(TakeOver(files, "/old/", folders).error->reason, FileError::Reason::Full);
  EXPECT_EQ(files.files, before);
  EXPECT_EQ(TakeOver(files, "/empty/", folders).error->path, "/empty/ZEKView.INI");
  files.failWrites.reset();
  const TakenOver done = TakeOver(files, "/old/", folders);
  EXPECT_FALSE(done.error);
  EXPECT_EQ(done.copied, 8U);
  EXPECT_EQ(done.kept, 1U);
  std::map<std::string, std::string> wanted = before;
  for (const auto& [path, bytes] : older)
    if (bytes != "-") wanted.emplace("/data/" + path.substr(5), bytes);
  EXPECT_EQ(files.files, wanted);
}

}  // namespace
}  // namespace zek
