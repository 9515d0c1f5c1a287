#include <gtest/gtest.h>

#include "catalogue/CopyFormat.h"
#include "catalogue/ObjectTree.h"
#include "support/TestSession.h"
#include "support/TextNames.h"

namespace zek {
namespace {

using Shown = std::vector<std::string>;

TEST(ObjectTree, ReadsTheObjectsSections) {
  test::TestSession session;
  session.files.files["/ini/ZEKView.INI"] =
      "[Topics]\nA=YES,1,PC,Alfa\\beta\nB=1,2,,Beta\nC=1,1,h:1,Empty\n"
      "[A]\nahu1= Plant 1/DUC;2.0 x;3\n;off=1\nno equals\n{x}y=Own case\nbad=L[abel\nempty=\n=v\n"
      "b=Second=cut;7\n"
      "[B]\nt1=Label;9\n";
  session.prompts.shown.clear();
  session.Load("");
  std::string dump;
  for (std::size_t i = 0; i < session.proc.tree.size(); ++i) {
    const TreeNode& node = session.proc.tree[i];
    dump += node.Key + " " + std::to_string(static_cast<int>(node.Picture)) + " " +
            FullPath(session.proc.tree, i) + " (" + node.TscName + ")\n";
  }
  EXPECT_EQ(dump,
            "_0 2 Alfa\\beta [PC/A] ()\n"
            "_0_2_0 3 Alfa\\beta [PC/A]\\Plant 1/DUC [AHU1] (AHU1)\n"
            "_0_0_1 3 Alfa\\beta [PC/A]\\Own case [{x}y] ({x}y)\n"
            "_0_0_2 3 Alfa\\beta [PC/A]\\Second [B] (B)\n"
            "_1 2 Beta [/B] ()\n"
            "_1_9_0 4 Beta [/B]\\Label [T1] (T1)\n"
            "_2 1 Empty [H:1/C] ()\n");
  EXPECT_EQ(session.prompts.shown, (Shown{"n T59", "n T60", "i T415 (PC/A/BAD/L[abel)"}));
  EXPECT_EQ(session.proc.tree[1].PickListTable, 2);
  EXPECT_EQ(FindNode(session.proc.tree, session.proc.topics, "b/T1"), 5U);
  EXPECT_EQ(FindNode(session.proc.tree, session.proc.topics, "c"), 6U);
  EXPECT_FALSE(FindNode(session.proc.tree, session.proc.topics, "a/nix"));
}

TEST(ObjectTree, ACutSectionIsToldAndUsed) {
  test::TestSession session;
  std::string section;
  for (int i = 0; i < 100; ++i)
    section += "T" + std::to_string(i) + "=" + std::string(30, 'x') + "\n";
  session.files.files["/ini/ZEKView.INI"] = "[Topics]\nA=YES,1,,D\n[A]\n" + section;
  session.prompts.shown.clear();
  session.Load("");
  EXPECT_EQ(session.prompts.shown.back(), "i T412 A T413 2046 T414");
  EXPECT_GT(session.proc.tree.size(), 50U);
}

TEST(ObjectTree, TellsWhatCannotBeToldApart) {
  test::TestSession session;
  session.files.files["/ini/ZEKView.INI"] =
      "[Topics]\nA=YES,1,PC,School\nB=YES,2,PC,SCHOOL\nC=YES,2,PC,Hall\n"
      "[A]\nplt=x\nPLT1=x\nplt1=x\nPLT10=x\nAHU1=x\n"
      "[B]\nplt=x\nplt10=x\nt1=x\n[C]\nsdc=x\nt*=x\nt?=x\nt_=x\n";
  session.Load("");
  session.proc.texts = test::NamedTexts("");
  session.prompts.shown.clear();
  BuildObjectTree(session.proc.topics, session.profile, session.proc.texts, session.prompts);
  std::string shown;
  for (const std::string& message : session.prompts.shown) shown += test::Filled(message) + "\n";
  EXPECT_EQ(shown,
            "x kBlockShared A PLT, PLT10\n"
            "x kFilesShared\nA, B: PC SCHOOL SDC.TXT\nC, C/SDC: PC Hall SDC.TXT\n"
            "C/T*, C/T?: PC Hall T_.TXT\nC/T*, C/T_: PC Hall T_.TXT\n");
}

TEST(LocalFiles, NamesStayInTheirDirectory) {
  struct {
    const char* description;
    const char* address;
    Generation type;
    const char* tsc;
    const char* sdc;
    const char* wdc;
    const char* ovc;
  } const cases[] = {
      {"Skola", "10.0.0.1:5:3", Generation::Zek1, "X", "f10_0_0_1_5_3 Skola SDC.TXT",
       "f10_0_0_1_5_3 Skola WDC.TXT", "f10_0_0_1_5_3 Skola OVC.TXT"},
      {"Skola", "", Generation::Zek2, "TSC1", "Skola SDC.TXT", "Skola TSC1.TXT",
       "Skola TSC1 EXC.TXT"},
      {"Skola", "", Generation::Zek2, nullptr, "Skola SDC.TXT", "", ""},
      {"../../etc/x", "PC", Generation::Zek1, "X", "PC ______etc_x SDC.TXT",
       "PC ______etc_x WDC.TXT", "PC ______etc_x OVC.TXT"},
      {"a*?\"<>|\x01", "", Generation::Zek2, "..\\b/", "a_______ SDC.TXT", "a_______ .._b_.TXT",
       "a_______ .._b_ EXC.TXT"},
  };
  for (const auto& each : cases) {
    Topic topic;
    topic.Description = each.description;
    topic.Address = each.address;
    topic.TopicType = each.type;
    TreeNode node;
    if (each.tsc != nullptr) {
      node.Parent = 0;
      node.TscName = each.tsc;
    }
    const LocalFileNames names = LocalFilesOf(topic, node);
    EXPECT_EQ(names.SDC, each.sdc);
    EXPECT_EQ(names.WDC, each.wdc);
    EXPECT_EQ(names.OVC, each.ovc);
  }
  EXPECT_EQ(LocalPath("/p/", "\xE5 ../x"), "/p/\xC3\xA5 .._x");
}

}  // namespace
}  // namespace zek
