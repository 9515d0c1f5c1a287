// How the platform's profile calls read settings files. The cases run with every way to read and
// write them on this system, so that our own code and the calls agree.

#include <gtest/gtest.h>
#include <utility>

#include "settings/ProfileKinds.h"
#include "support/CaseFile.h"
#include "support/TemporaryFolder.h"
#include "system/DiskFiles.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;

class ProfileCases : public ::testing::TestWithParam<test::ProfileKind> {
 protected:
  Profile& With(const std::string& text) {
    EXPECT_FALSE(files.Write(path, text));
    return *profile;
  }

  test::TemporaryFolder temporary;
  std::string path = temporary.Name() + "ZEKView.INI";
  DiskFiles files;
  std::unique_ptr<Profile> profile = GetParam().open(files, path);
};

INSTANTIATE_TEST_SUITE_P(All, ProfileCases, testing::ValuesIn(test::ProfileKinds()),
                         [](const auto& kind) { return kind.param.name; });

// Not tested: a value that ends in character 26, which Wine drops, and keys with non-ASCII letters
// in the other case, which Wine does not find. The program has no such settings.
constexpr const char* kFile =
    "before=1\r\n"
    "[Q]\n"
    "a=\"q\"\nb='q'\nc=\"open\nd='mix\"\ne=\"\nf=\"\"dd\"\"\ng=\"a\" b\nh= \"  in  \" \n"
    "i=\xE5\x80\x81\xFF\xA0\nj=a=b=c\n  Key = 1\t\nKEY=2\nempty=\nnoeq\nl=v ; tail\n;c=x\r"
    "[x] text\nk=x\n  [z]\nk=z\n[ sp ]\nk=sp\n[b]b]\nk=b\n[y\nlost=1\n[Q]\nonly=2\n[last]\nk=end";

TEST_P(ProfileCases, Values) {
  const Profile& read = With(kFile);
  test::CheckCases("profile.txt", [&read](const test::TextCase& given) {
    std::string outcome;
    for (const std::string& entry : given.given) {
      const std::size_t key = entry.find('/');
      outcome += read.ReadIni(entry.substr(0, key), entry.substr(key + 1), "(none)") + "\n";
    }
    return outcome;
  });
}

TEST_P(ProfileCases, LongValuesAndDefaults) {
  const std::string most(127, 'y');
  EXPECT_EQ(profile->ReadIni("s", "k", "  def  "), "  def") << "without a file";
  EXPECT_EQ(profile->ReadIni("s", "k", std::string(300, 'd')), std::string(127, 'd'));
  const Profile& read = With("[s]\nk=" + std::string(300, 'x') + "\nm=" + most + "\nq=\"" + most +
                             "\"\nr=\"" + std::string(126, 'z') + "\"\n");
  EXPECT_EQ(read.ReadIni("s", "k", ""), std::string(127, 'x'));
  EXPECT_EQ(read.ReadIni("s", "m", ""), most);
  EXPECT_EQ(read.ReadIni("s", "nix", " d "), " d");
  // Wine loses a character when quotes surround a value of the largest length.
  if (GetParam().ours) {
    EXPECT_EQ(read.ReadIni("s", "q", ""), most);
  }
}

TEST_P(ProfileCases, SectionsAndTheirBuffer) {
  const Profile& read =
      With("[s]\n a = \"1\" \n\nnoeq\n;c=1\n #x=2\n=v\n= \n[t]\nabc=def\n[S]\nsecond=1\n[e]\n");
  EXPECT_EQ(read.ReadSection("s", 100).entries, (Lines{"a=\"1\"", "noeq", "#x=2", "=v"}));
  const std::pair<std::size_t, std::size_t> lengths[] = {{8, 6}, {9, 7}, {10, 8}, {11, 8}};
  for (const auto& [size, length] : lengths) {
    EXPECT_EQ(read.ReadSection("t", size).length, length) << size;
  }
  EXPECT_EQ(read.ReadSection("t", 8).entries, Lines{"abc=de"});
  EXPECT_TRUE(read.ReadSection("t", 8).cut);
  EXPECT_FALSE(read.ReadSection("t", 11).cut);
  for (const char* const nothing : {"e", "nix", ""}) {
    EXPECT_TRUE(read.ReadSection(nothing, 8).entries.empty()) << nothing;
    EXPECT_FALSE(read.ReadSection(nothing, 8).cut) << nothing;
  }
}

TEST_P(ProfileCases, ATopicListOverItsBuffer) {
  std::string text = "[Topics]\r\n";
  for (int i = 100; i < 520; ++i) {
    text += "TOPIC" + std::to_string(i) + " = YES,ZEK2,plant:5100:3,Kontoret\r\n";
  }
  const ProfileSection section = With(text).ReadSection("Topics", 16384);
  EXPECT_EQ(section.length, 16382U);
  EXPECT_TRUE(section.cut);
  ASSERT_EQ(section.entries.size(), 410U);  // of 40 characters each with their end
  EXPECT_EQ(section.entries.front(), "TOPIC100=YES,ZEK2,plant:5100:3,Kontoret");
  EXPECT_LT(section.entries.back().size(), section.entries.front().size());
}

// Compares by reading again, because Wine rewrites the whole file in its own layout.
TEST_P(ProfileCases, Writes) {
  const struct {
    const char* before;
    const char* value;
    const char* readBack;
    Lines section;
  } cases[] = {
      {"", "v", "v", {"k=v"}},
      {"x=1", "v", "v", {"k=v"}},
      {"[S]\n k = old\nK=2\n", "v", "v", {"k=v", "K=2"}},
      {"; c\n[s]\na=1\n\n\n[t]\nk=3\n", "v", "v", {"a=1", "k=v"}},
      {"[s]", "v", "v", {"k=v"}},
      {"[s]\na=1", "v", "v", {"a=1", "k=v"}},
      {"[s]\nk=1\n", " x ", "x", {"k=x"}},
      {"[s]\nk=1\n", "", "", {"k="}},
      {"[s]\nk=1\n", "\"q\"", "q", {"k=\"q\""}},
      {"[s]\nk=1\n", "a=b ;c", "a=b ;c", {"k=a=b ;c"}},
      {"[s]\nk=1\n", "\xE5\x80\xFF", "\xE5\x80\xFF", {"k=\xE5\x80\xFF"}},
      {"\xC3\xA4\n[s]\nk=1\n", "\xE5\x80\xFF", "\xE5\x80\xFF", {"k=\xE5\x80\xFF"}},
      {"[s]\nnoeq\nk\n[S]\nk=2\n", "v", "v", {"noeq", "k=v"}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.before) + each.value);
    Profile& written = With(each.before);
    EXPECT_FALSE(written.WriteIni("s", "k", each.value));
    EXPECT_EQ(written.ReadIni("S", "K", "(none)"), each.readBack);
    const Lines entries = written.ReadSection("s", 1000).entries;
    EXPECT_EQ(entries, each.section);
    EXPECT_EQ(written.ReadIni("t", "k", "3"), "3") << "other sections stay";
  }
}

TEST_P(ProfileCases, WhatCannotBeWrittenIsAnError) {
  Profile& written = With("[s]\nk=1\n");
  for (const char* const value : {"a\nb", "a\rb"}) EXPECT_TRUE(written.WriteIni("s", "k", value));
  EXPECT_TRUE(written.WriteIni("s", "k", std::string_view("a\0b", 3)));
  EXPECT_TRUE(written.WriteIni("", "k", "v"));
  EXPECT_TRUE(written.WriteIni("s", " ", "v"));
  EXPECT_EQ(files.Read(path).bytes, "[s]\nk=1\n");
  const std::string nowhere = temporary.Name() + "nix/ZEKView.INI";
  const auto error = GetParam().open(files, nowhere)->WriteIni("s", "k", "v");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->reason, FileError::Reason::Missing);
  EXPECT_EQ(error->path, nowhere);
}

}  // namespace
}  // namespace zek
