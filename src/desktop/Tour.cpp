#include "desktop/Tour.h"

#include <iostream>
#include <memory>

#include <wx/bitmap.h>
#include <wx/button.h>
#include <wx/choice.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/dynlib.h>
#include <wx/frame.h>
#include <wx/gdicmn.h>
#include <wx/image.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>
#include <wx/treectrl.h>

#include "forms/browser/ZV_TSC.h"
#include "forms/main/ZV_Main.h"
#include "system/Paths.h"
#include "text/Windows1252.h"

namespace zek {

namespace {

// The drawing library caches screen contents until a call marks them as changed. The toolkit has no
// such call, so this uses the library directly; the toolkit has already loaded it.
void ForgetOldScreen([[maybe_unused]] const wxDC& screen) {
#ifdef __WXGTK__
  using TargetOf = void* (*)(void*);
  using Call = void (*)(void*);
  const wxDynamicLibrary cairo("libcairo.so.2", wxDL_NOW | wxDL_VERBATIM);
  if (!cairo.IsLoaded()) return;
  const auto targetOf = reinterpret_cast<TargetOf>(cairo.GetSymbol("cairo_get_target"));
  const auto flush = reinterpret_cast<Call>(cairo.GetSymbol("cairo_surface_flush"));
  const auto markDirty = reinterpret_cast<Call>(cairo.GetSymbol("cairo_surface_mark_dirty"));
  if (targetOf == nullptr || flush == nullptr || markDirty == nullptr) return;
  void* const target = targetOf(screen.GetHandle());
  flush(target);
  markDirty(target);
#endif
}

}  // namespace

bool SaveScreenPicture(const wxWindow& window, const std::string& path) {
  const wxRect place =
      wxRect(window.GetScreenPosition(), window.GetSize()).Intersect(wxRect(wxGetDisplaySize()));
  wxBitmap picture;
  picture.CreateWithDIPSize(place.GetSize(), window.GetContentScaleFactor());
  {
    wxScreenDC screen;
    ForgetOldScreen(screen);
    wxMemoryDC memory(picture);
    memory.Blit({0, 0}, place.GetSize(), &screen, place.GetPosition());
  }
  return picture.ConvertToImage().SaveFile(wxString::FromUTF8(path), wxBITMAP_TYPE_BMP);
}

namespace {

constexpr int kTickMs = 100;
constexpr int kTicksInSecond = 1000 / kTickMs;
constexpr int kSettleTicks = 5;  // time for painting
constexpr int kFetchSeconds = 120;
constexpr const char* kCommand = "LIST SDC";  // all controllers accept it

wxWindow* Shown(const char* name) {
  wxWindow* const window = wxWindow::FindWindowByName(name);
  return window != nullptr && window->IsShownOnScreen() ? window : nullptr;
}

template <class Control>
Control* ControlOf(const char* form, const char* name) {
  wxWindow* const window = Shown(form);
  if (window == nullptr) return nullptr;
  return dynamic_cast<Control*>(wxWindow::FindWindowByName(name, window));
}

void Post(wxWindow& window, wxEventType type, int id, int selection = 0) {
  auto event = std::make_unique<wxCommandEvent>(type, id);
  event->SetInt(selection);
  event->SetEventObject(&window);
  window.GetEventHandler()->QueueEvent(event.release());
}

void CloseLater(wxWindow& window) {
  window.CallAfter([&window] { window.Close(); });
}

}  // namespace

void TourPrompts::Show(Icon icon, const std::string& message, const std::string& /*caption*/) {
  warned_ = warned_ || icon == Icon::Exclamation || icon == Icon::Critical;
  std::cerr << "zekview: " << Utf8FromWindows1252(message) << '\n';
}

bool TourPrompts::AskYesNo(Icon icon, const std::string& question, const std::string& caption,
                           DefaultAnswer /*standard*/) {
  Show(icon == Icon::Exclamation ? Icon::Question : icon, question, caption);
  return false;
}

Answer TourPrompts::AskThree(Icon icon, const std::string& question, const std::string& caption,
                             const AnswerCaptions& /*captions*/) {
  return AskYesNo(icon, question, caption) ? Answer::Yes : Answer::No;
}

Tour::Tour(std::string directory, ZV_Proc& proc, WxTurn& turn, const TourPrompts& prompts)
    : directory_(std::move(directory)), proc_(proc), turn_(turn), prompts_(prompts) {}

void Tour::Begin() {
  Plan();
  Start(kTickMs);
}

void Tour::Plan() {
  const auto shown = [](const char* form) { return [form] { return Shown(form) != nullptr; }; };
  steps_.push_back({"the about box", shown("ZV_Info"), [this] {
                      TakePicture("ZV_Info", "about");
                      CloseLater(*Shown("ZV_Info"));
                    }});
  steps_.push_back({"the main window", shown("ZV_Main"), [this] { ChooseTopic(); }});
  steps_.push_back({"the connection",
                    [] {
                      const auto* const input = ControlOf<wxTextCtrl>("ZV_Main", "Text_Input");
                      return input != nullptr && input->IsEnabled();
                    },
                    [this] { TypeCommand(); }});
  steps_.push_back({"an answer",
                    [this] { return proc_.log.Added() > 0 && proc_.status.Hourglass == 0; },
                    [this] {
                      TakePicture("ZV_Main", "main");
                      Post(*Shown("ZV_Main"), wxEVT_MENU, main_menu::Menu_TSC);
                    }});
  steps_.push_back({"the browser", shown("ZV_TSC"), [this] { SelectTimeControl(); }});
  steps_.push_back({"the selected time control", shown("ZV_TSC"), [this] {
                      TakePicture("ZV_TSC", "browser");
                      Post(*Shown("ZV_TSC"), wxEVT_MENU, browser::Menu_Applies);
                    }});
  const auto editor = [&](const char* what, const char* form, const char* picture, int next) {
    steps_.push_back({what, shown(form),
                      [this, form, picture] {
                        TakePicture(form, picture);
                        CloseLater(*Shown(form));
                      },
                      kFetchSeconds});
    steps_.push_back({std::string(what) + " closed", [form] { return Shown(form) == nullptr; },
                      [next] { Post(*Shown("ZV_TSC"), wxEVT_MENU, next); }});
  };
  editor("what applies", "ZV_Applies", "applies", browser::Menu_GetWDC);
  editor("the weekday editor", "ZV_WDC", "weekday", browser::Menu_GetSDC);
  // December has the most days with a type.
  steps_.push_back({"the calendar", shown("ZV_SDC"),
                    [] {
                      auto* const december = ControlOf<wxRadioButton>("ZV_SDC", "Option_Month11");
                      december->SetValue(true);
                      Post(*december, wxEVT_RADIOBUTTON, december->GetId(), 1);
                    },
                    kFetchSeconds});
  steps_.push_back({"the calendar editor", shown("ZV_SDC"), [this] {
                      TakePicture("ZV_SDC", "calendar");
                      auto* const year = ControlOf<wxButton>("ZV_SDC", "Command_Year");
                      Post(*year, wxEVT_BUTTON, year->GetId());
                    }});
  editor("the year", "ZV_SDC", "year", browser::Menu_GetOVC);
  editor("the exception editor", "ZV_OVC", "exception", browser::Menu_Findings);
  editor("the list of findings", "ZV_Findings", "findings", browser::Menu_Batch_Run);
  steps_.push_back(
      {"the batch export", shown("Gauge_Batch"), [this] { TakePicture("ZV_TSC", "export"); }});
  steps_.push_back({"the summary of the export", shown("ZV_TSCSummary"),
                    [] { CloseLater(*Shown("ZV_TSCSummary")); }, kFetchSeconds});
}

void Tour::Notify() {
  if (leaving_) {
    Leave();
    return;
  }
  if (step_ == steps_.size()) {
    succeeded_ = true;
    leaving_ = true;
    return;
  }
  const Step& step = steps_[step_];
  if (prompts_.Warned()) {
    Fail("the message above ended the tour at: " + step.awaited);
    return;
  }
  settled_ = step.ready() ? settled_ + 1 : 0;
  if (settled_ >= kSettleTicks) {
    ++step_;
    ticks_ = 0;
    settled_ = 0;
    step.act();
  } else if (++ticks_ > step.seconds * kTicksInSecond) {
    Fail("the tour timed out, waiting for: " + step.awaited);
  }
}

void Tour::Fail(const std::string& reason) {
  std::cerr << "zekview: " << reason << '\n';
  leaving_ = true;
  turn_.Quit();
}

// Closes the innermost open form; each tick closes the next one.
void Tour::Leave() {
  for (const char* const form : {"ZV_Findings", "ZV_Applies", "ZV_WDC", "ZV_SDC", "ZV_OVC",
                                 "ZV_TSCSummary", "ZV_TSC", "ZV_Info", "ZV_Main"}) {
    wxWindow* const window = Shown(form);
    if (window == nullptr) continue;
    CloseLater(*window);
    return;
  }
}

void Tour::TakePicture(const std::string& form, const std::string& name) {
  const std::string path = WithSeparator(directory_) + name + ".bmp";
  if (!SaveScreenPicture(*Shown(form.c_str()), path)) Fail("could not write " + path);
}

void Tour::ChooseTopic() {
  auto* const topics = ControlOf<wxChoice>("ZV_Main", "Combo_Topics");
  if (topics == nullptr || topics->IsEmpty()) {
    Fail("the topic list is empty");
    return;
  }
  topics->SetSelection(0);
  Post(*topics, wxEVT_CHOICE, topics->GetId(), 0);
}

void Tour::TypeCommand() {
  auto* const input = ControlOf<wxTextCtrl>("ZV_Main", "Text_Input");
  input->ChangeValue(kCommand);
  Post(*input, wxEVT_TEXT_ENTER, input->GetId());
}

// Selects the first time control of the browser's selected object, or else of another object.
void Tour::SelectTimeControl() {
  auto* const tree = ControlOf<wxTreeCtrl>("ZV_TSC", "TreeView");
  if (tree == nullptr) {
    Fail("the browser shows no tree");
    return;
  }
  wxTreeItemIdValue cookie = nullptr;
  const wxTreeItemId selected = tree->GetSelection();
  wxTreeItemId object =
      selected.IsOk() ? selected : tree->GetFirstChild(tree->GetRootItem(), cookie);
  if (object.IsOk() && !tree->ItemHasChildren(object)) {
    object = tree->GetFirstChild(tree->GetRootItem(), cookie);
  }
  while (object.IsOk() && !tree->ItemHasChildren(object)) object = tree->GetNextSibling(object);
  if (!object.IsOk()) {
    Fail("the browser shows no time control");
    return;
  }
  tree->Expand(object);
  tree->SelectItem(tree->GetFirstChild(object, cookie));
}

}  // namespace zek
