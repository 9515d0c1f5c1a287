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

/// Saves what the screen shows of a window as a BMP file (the path in UTF-8), a format that the
/// toolkit knows everywhere. False when the file can't be written.
bool SaveScreenPicture(const wxWindow& window, const std::string& path);

/// The messages of a tour: on standard error, and every question is answered with No.
class TourPrompts final : public Prompts {
 public:
  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) override;

  /// A warning or an error was shown.
  bool Warned() const { return warned_; }

 private:
  bool warned_ = false;
};

/// Shows the program by itself: connects to a topic, sends a command, opens the browser, fetches a
/// catalogue of each kind and opens its editor, and exports the plant, all through the events that
/// a user's hand would cause. Leaves a picture of each form in `directory` (UTF-8) and closes the
/// program.
class Tour final : private wxTimer {
 public:
  Tour(std::string directory, ZV_Proc& proc, WxTurn& turn, const TourPrompts& prompts);

  void Begin();

  /// All pictures were taken.
  bool Succeeded() const { return succeeded_; }

 private:
  struct Step {
    std::string awaited;  // for the message when it does not come
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
  int ticks_ = 0;    // since the step began
  int settled_ = 0;  // ticks for which it has been ready
  bool leaving_ = false;
  bool succeeded_ = false;
};

}  // namespace zek
