#include <gtest/gtest.h>

#include <wx/button.h>

#include "Keys.h"
#include "ui/WxPrompts.h"

namespace zek::window {
namespace {

std::function<bool()> FocusOn(int id) {
  return [id] {
    return IsActive("PromptBox") && wxWindow::FindWindowById(id, Shown("PromptBox"))->HasFocus();
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

void ByEnter() { Press(WXK_RETURN); }
void ByClickOnYes() { Click(*wxWindow::FindWindowById(wxID_YES)); }
void ByClosing() { Shown("PromptBox")->Close(); }

TEST(PromptBox, AnswersByKeyAndByMouse) {
  using Box = Answer (*)(WxPrompts&);
  const auto yesOrNo = [](bool yes) { return yes ? Answer::Yes : Answer::No; };
  static const auto answer = yesOrNo;
  const Box question = [](WxPrompts& box) {
    return answer(box.AskWithDetails(Icon::Question, "?", {}, ManyLines()));
  };
  const Box warning = [](WxPrompts& box) {
    return answer(box.AskYesNo(Icon::Exclamation, "?", {}));
  };
  const Box careful = [](WxPrompts& box) {
    return answer(box.AskYesNo(Icon::Question, "?", {}, DefaultAnswer::No));
  };
  const Box three = [](WxPrompts& box) {
    return box.AskThree(Icon::Question, std::string(9000, 'x'), {}, {"&Copy", "&Fetch", "Stop"});
  };
  const Box message = [](WxPrompts& box) {
    box.ShowDetails(Icon::Exclamation, "!", {}, ManyLines());
    return Answer::Yes;
  };
  struct Case {
    Box box;
    int standard;
    void (*act)();
    Answer answer;
  };
  for (const Case& each : {Case{question, wxID_YES, ByEnter, Answer::Yes},
                           {question, wxID_YES, Escape, Answer::No},
                           {warning, wxID_NO, ByEnter, Answer::No},
                           {warning, wxID_NO, ByClickOnYes, Answer::Yes},
                           {careful, wxID_NO, ByEnter, Answer::No},
                           {three, wxID_YES, ByClickOnYes, Answer::Yes},
                           {three, wxID_YES, [] { Press('F', wxMOD_ALT); }, Answer::No},
                           {three, wxID_YES, Escape, Answer::Cancel},
                           {three, wxID_YES, ByClosing, Answer::Cancel},
                           {message, wxID_OK, ByEnter, Answer::Yes},
                           {message, wxID_OK, Escape, Answer::Yes}}) {
    WxPrompts prompts;
    Play({{FocusOn(each.standard), each.act}});
    EXPECT_EQ(each.box(prompts), each.answer);
  }
  EXPECT_EQ(Shown("PromptBox"), nullptr);
}

TEST(PromptBox, ItsLinesAreReachedByKeyAndCannotBeChanged) {
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

}  // namespace
}  // namespace zek::window
