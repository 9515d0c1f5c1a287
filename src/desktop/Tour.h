#pragma once

#include <functional>
#include <string>
#include <vector>

#include <wx/timer.h>
#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "system/Prompts.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// Saves the visible part of a window as a BMP file; the path is UTF-8. The toolkit supports BMP on
/// every system. Returns false on a write error.
bool SaveScreenPicture(const wxWindow& window, const std::string& path);

/// Prints the messages of a tour on standard error and answers every question with No.
class TourPrompts final : public Prompts {
 public:
  using Prompts::AskYesNo;
  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption,
                DefaultAnswer standard) override;
  Answer AskThree(Icon icon, const std::string& question, const std::string& caption,
                  const AnswerCaptions& captions) override;

  /// True after a warning or an error.
  bool Warned() const { return warned_; }

 private:
  bool warned_ = false;
};

/// Runs the program without a user: connects to a topic, sends a command, opens the browser,
/// fetches a catalogue of each kind, opens its editor, and exports the plant. It posts the same
/// events as a user's input. Saves a picture of each form in `directory` (UTF-8) and closes the
/// program.
class Tour final : private wxTimer {
 public:
  Tour(std::string directory, ZV_Proc& proc, WxTurn& turn, const TourPrompts& prompts);

  void Begin();

  /// True after all steps.
  bool Succeeded() const { return succeeded_; }

 private:
  struct Step {
    std::string awaited;  // named in the message after a time-out
    std::function<bool()> ready;
    std::function<void()> act;
    int seconds = 30;
  };

  void Plan();
  void Notify() override;
  void Fail(const std::string& reason);
  void Leave();
  void TakePicture(const std::string& form, const std::string& name);
  void ChooseTopic();
  void TypeCommand();
  void SelectTimeControl();

  std::string directory_;
  ZV_Proc& proc_;
  WxTurn& turn_;
  const TourPrompts& prompts_;
  std::vector<Step> steps_;
  std::size_t step_ = 0;
  int ticks_ = 0;    // ticks since the step began
  int settled_ = 0;  // ticks for which the step has been ready
  bool leaving_ = false;
  bool succeeded_ = false;
};

}  // namespace zek
