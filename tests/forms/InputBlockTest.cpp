#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/msgdlg.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include "Keys.h"
#include "ui/InputBlock.h"
#include "ui/WxPrompts.h"

namespace zek::window {
namespace {

class InputBlockTest : public testing::Test {
 protected:
  InputBlockTest() {
    frame_->Show();
    text_->SetFocus();
    EXPECT_TRUE(PumpUntil([this] { return text_->HasFocus(); }));
    Pump(50);
  }
  void TearDown() override { frame_->Destroy(); }

  // The system's own boxes do not report when they accept keys, so the key is pressed again.
  class Escapes final : public wxTimer {
   public:
    Escapes() { Start(1000); }
    void Notify() override { Escape(); }
  };

  static void Key(int key) {
    Press(key);
    Pump(100);
  }

  wxFrame* frame_ = new wxFrame(nullptr, wxID_ANY, "block");  // Destroy() deletes it
  wxTextCtrl* text_ = new wxTextCtrl(frame_, wxID_ANY);
};

TEST_F(InputBlockTest, KeepsKeysAndCloseRequestsAway) {
  int escapes = 0;
  {
    const InputBlock block([&escapes] { ++escapes; });
    Key('A');
    Key(WXK_ESCAPE);
    frame_->Close();
    Pump(50);
    EXPECT_TRUE(block.CloseRequested());
  }
  EXPECT_EQ(text_->GetValue(), "");
  EXPECT_EQ(escapes, 2) << "a wish to close cancels as Escape does";
  EXPECT_TRUE(frame_->IsShown());
  Key('B');
  EXPECT_EQ(text_->GetValue().Lower(), "b");
}

TEST_F(InputBlockTest, AnEscapeOnTheFreeButtonReachesNothingElse) {
  int escapes = 0;
  int keys = 0;
  auto* const cancel = new wxButton(frame_, wxID_CANCEL);
  frame_->Bind(wxEVT_CHAR_HOOK, [&keys](wxKeyEvent&) { ++keys; });
  const InputBlock block([&escapes] { ++escapes; }, cancel);
  cancel->SetFocus();
  Key(WXK_F5);  // from its release on, the button takes keys
  Key(WXK_ESCAPE);
  EXPECT_EQ(escapes, 1);
  EXPECT_EQ(keys, 0);
}

TEST_F(InputBlockTest, LetsTheBoxesOfTheWaitWorkAndNothingBehindThem) {
  using Ask = int (*)(wxFrame*);
  const Ask ownDialog = [](wxFrame* frame) {
    wxDialog dialog(frame, wxID_ANY, "question");
    new wxButton(&dialog, wxID_CANCEL);  // the dialog's own
    return dialog.ShowModal();
  };
  const Ask prompt = [](wxFrame* /*frame*/) -> int {
    return WxPrompts().AskYesNo(Icon::Question, "?", {}) ? wxID_YES : wxID_CANCEL;
  };
  const Ask systemBox = [](wxFrame* frame) {
    return wxMessageDialog(frame, "?", "", wxOK | wxCANCEL).ShowModal();
  };
  for (const Ask ask : {ownDialog, prompt, systemBox}) {
    int escapes = 0;
    const InputBlock block([&escapes] { ++escapes; });
    Escapes keys;
    EXPECT_EQ(ask(frame_), wxID_CANCEL);
    keys.Stop();
    EXPECT_EQ(escapes, 0) << "the Escape was meant for the box";
  }
  const InputBlock block([] {});
  wxDialog dialog(frame_, wxID_ANY, "another form's question");
  When([&dialog] { return dialog.IsShownOnScreen(); },
       [&] {
         EXPECT_FALSE(frame_->Close());
         dialog.EndModal(wxID_OK);
       });
  EXPECT_EQ(dialog.ShowModal(), wxID_OK);
  EXPECT_TRUE(block.CloseRequested());
}

}  // namespace
}  // namespace zek::window
