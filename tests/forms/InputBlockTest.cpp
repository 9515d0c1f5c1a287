#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include "WindowApp.h"
#include "ui/InputBlock.h"

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

  void Press(int key) {
    wxUIActionSimulator keys;
    keys.Char(key);
    Pump(100);
  }

  wxFrame* frame_ = new wxFrame(nullptr, wxID_ANY, "block");  // Destroy() deletes it
  wxTextCtrl* text_ = new wxTextCtrl(frame_, wxID_ANY);
};

TEST_F(InputBlockTest, KeepsKeysAndCloseRequestsAway) {
  int escapes = 0;
  {
    const InputBlock block([&escapes] { ++escapes; });
    Press('A');
    Press(WXK_ESCAPE);
    frame_->Close();
    Pump(50);
    EXPECT_TRUE(block.CloseRequested());
  }
  EXPECT_EQ(text_->GetValue(), "");
  EXPECT_EQ(escapes, 2) << "a wish to close cancels as Escape does";
  EXPECT_TRUE(frame_->IsShown());
  Press('B');
  EXPECT_EQ(text_->GetValue().Lower(), "b");
}

TEST_F(InputBlockTest, LetsADialogOfTheWaitWork) {
  const InputBlock block([] {});
  wxDialog dialog(frame_, wxID_ANY, "question");
  new wxButton(&dialog, wxID_CANCEL);  // the dialog's own
  When([&dialog] { return dialog.IsShownOnScreen(); },
       [] {
         Pump(100);
         wxUIActionSimulator().Char(WXK_ESCAPE);
       });
  EXPECT_EQ(dialog.ShowModal(), wxID_CANCEL);
}

}  // namespace
}  // namespace zek::window
