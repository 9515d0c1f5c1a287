#include <gtest/gtest.h>

#include <wx/button.h>

#include "Keys.h"
#include "ui/WxPrompts.h"

namespace zek::window {
namespace {

std::function<bool()> FocusOn(int id) {
  return [id] {
    return IsActive("DetailsBox") && wxWindow::FindWindowById(id, Shown("DetailsBox"))->HasFocus();
  };
}

PromptDetails ManyLines() {
  PromptDetails details{"&Lines:", {}};
  for (int i = 1; i <= 150; ++i) details.lines += "line " + std::to_string(i) + "\r\n";
  return details;
}

// The system decides the order of the buttons.
void TabToLines() {
  for (int tries = 0; tries < 3 && !HasFocus("Text_Details"); ++tries) {
    Press(WXK_TAB);
    Pump(100);
  }
}

bool Ask(Icon icon, std::vector<Step> steps) {
  WxPrompts prompts;
  Play(std::move(steps));
  return prompts.AskWithDetails(icon, "Send?", "Title", ManyLines());
}

TEST(DetailsBox, AnswersByKeyAndByMouseAsABoxDoes) {
  EXPECT_TRUE(Ask(Icon::Question, {{FocusOn(wxID_YES), [] { Press(WXK_RETURN); }}}));
  EXPECT_FALSE(Ask(Icon::Question, {{FocusOn(wxID_YES), Escape}}));
  EXPECT_FALSE(Ask(Icon::Exclamation, {{FocusOn(wxID_NO), [] { Press(WXK_RETURN); }}}));
  EXPECT_TRUE(Ask(Icon::Exclamation,
                  {{FocusOn(wxID_NO), [] { Click(*wxWindow::FindWindowById(wxID_YES)); }}}));
}

TEST(DetailsBox, ItsLinesAreReachedByKeyAndCannotBeChanged) {
  EXPECT_FALSE(Ask(Icon::Question, {{FocusOn(wxID_YES), [] {
                                       const std::string before = Value("Text_Details");
                                       EXPECT_NE(before.find("line 150"), std::string::npos);
                                       Reach("Text_Details", TabToLines);
                                       Type("x");
                                       Press(WXK_END, wxMOD_CONTROL);
                                       EXPECT_TRUE(PumpUntil([] {
                                         return Box("Text_Details").GetInsertionPoint() > 100;
                                       }));
                                       EXPECT_EQ(Value("Text_Details"), before);
                                       Escape();
                                     }}}));
}

TEST(DetailsBox, AMessageIsClosedByEveryKeyThatClosesABox) {
  for (const int key : {WXK_RETURN, WXK_ESCAPE}) {
    WxPrompts prompts;
    Play({{FocusOn(wxID_OK), [key] { Press(key); }}});
    prompts.ShowDetails(Icon::Exclamation, "Differs", {}, ManyLines());
  }
  EXPECT_EQ(Shown("DetailsBox"), nullptr);
}

}  // namespace
}  // namespace zek::window
