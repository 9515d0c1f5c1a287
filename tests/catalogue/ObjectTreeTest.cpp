#include <gtest/gtest.h>

#include "catalogue/CopyFormat.h"
#include "catalogue/CopyStates.h"
#include "catalogue/ObjectTree.h"
#include "catalogue/TreeItems.h"
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

TEST(TreeItems, GroupByThePartsOfLabels) {
  test::TestSession session;
  session.files.files["/ini/ZEKView.INI"] =
      "[Topics]\nA=YES,1,PC,Alfa\nB=1,2,,Beta\nC=1,1,h:1,Empty\n"
      "[A]\na1=School/DUC 1/Air;2\na2=School/DUC 1/Hall/Heat\n"
      "[B]\nb1=School/DUC 2/Light\nb2=Office / Light\n";
  session.Load("");
  const ObjectTree& tree = session.proc.tree;
  const std::vector<TreeItem> items = ItemsByPlace(tree, session.proc.topics, "%1 (all)");
  std::string shown;
  for (const TreeItem& item : items) {
    shown += (item.parent ? items[*item.parent].text : "") + ">" + item.text + "; ";
  }
  EXPECT_EQ(shown,
            ">School; School>DUC 1; DUC 1>Alfa (all); DUC 1>Air [A1]; DUC 1>Hall; Hall>Heat [A2]; "
            ">Beta (all); School>DUC 2; DUC 2>Light [B1]; >Office; Office>Light [B2]; "
            ">Empty (all); ");
  using Places = std::vector<std::size_t>;
  EXPECT_EQ(NodesAround(items, 3), (Places{0, 1, 2}));
  EXPECT_EQ(NodesAround(items, 0), (Places{0, 1, 2, 4}));
  EXPECT_EQ(NodesAround(ItemsByObject(tree), 5), (Places{3, 4, 5}));
  EXPECT_EQ(NodesWith(tree, "light school"), (Places{4}));
  EXPECT_EQ(NodesWith(tree, "alfa [a]"), (Places{0, 1, 2}));
  EXPECT_EQ(NodesWith(tree, "1"), (Places{1, 2, 4}));
  EXPECT_EQ(NodesWith(tree, "h:1"), (Places{6}));
}

TEST(CopyStates, TellWhichControlHasUnsentChanges) {
  test::TestSession session;
  CopyStates states(session.proc.copies, session.proc.records);
  session.Select("ONE/AHU1");
  const CatalogueId id = session.Id();
  EXPECT_FALSE(states.Of(id).exists);
  session.Store({"1000 !AHU1  !MO", "1001 !AHU2  !MO"});
  EXPECT_FALSE(states.Of(id).exists) << "read once";
  states.Forget(id.localFile);
  EXPECT_TRUE(states.Of(id).exists && states.Of(id).time.empty() && !states.Of(id).unsent);
  session.proc.records.RememberKnown(id, {{"1000 !AHU1  !MO"}, {}, LinesFrom::Controller, 0});
  states.ForgetAll();
  CatalogueId other = id;
  other.control = "AHU2";
  EXPECT_EQ(states.Of(id).time.size(), 16U);
  EXPECT_FALSE(states.Of(id).unsent);
  EXPECT_TRUE(states.Of(other).unsent && !states.Of(other).fewer);
  session.proc.records.RememberKnown(
      id,
      {{"1000 !AHU1  !MO", "1001 !AHU2  !MO", "1002 !AHU1  !TU"}, {}, LinesFrom::Controller, 0});
  states.ForgetAll();
  EXPECT_TRUE(!states.Of(id).unsent && states.Of(id).fewer);
  EXPECT_FALSE(states.Of(other).unsent || states.Of(other).fewer);
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
  EXPECT_EQ(LocalPath("/p/", "x. ."), "/p/x___");
}

}  // namespace
}  // namespace zek
