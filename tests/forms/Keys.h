#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <wx/textctrl.h>
#include <wx/time.h>
#include <wx/toplevel.h>
#include <wx/uiaction.h>

#include "WindowApp.h"

namespace zek::window {

/// Drives modal forms: each action runs once its condition holds, inside the event loop that runs
/// at that time. An action may open a form that a later step closes.
struct Step {
  std::function<bool()> when;
  std::function<void()> act;
};

inline void Play(std::vector<Step> steps) {
  if (steps.empty()) return;
  const Step first = steps.front();
  steps.erase(steps.begin());
  When(first.when, [first, rest = std::move(steps)] {
    Play(rest);
    first.act();
  });
}

/// True when the form with that name accepts keys.
inline bool IsActive(const std::string& name) {
  auto* const form = dynamic_cast<wxTopLevelWindow*>(Shown(name));
  return form != nullptr && form->IsActive() && form->IsEnabled();
}

inline bool HasFocus(const std::string& name) {
  const wxWindow* const window = Shown(name);
  return window != nullptr && window->HasFocus();
}

/// Creating one takes longer than to press a key.
inline wxUIActionSimulator& User() {
  static wxUIActionSimulator user;
  return user;
}

inline void Press(int key, int modifiers = 0) { User().Char(key, modifiers); }

inline void ClickAt(const wxPoint& place) {
  User().MouseMove(place);
  User().MouseClick();
}

inline void Click(const wxWindow& window) {
  ClickAt(window.GetScreenRect().GetPosition() + window.GetSize() / 2);
}

inline wxTextCtrl& Box(const std::string& name) { return dynamic_cast<wxTextCtrl&>(*Shown(name)); }
inline std::string Value(const std::string& name) { return Box(name).GetValue().ToStdString(); }

/// Makes a key press or click and waits until `box` has the focus.
inline void Reach(const std::string& box, const std::function<void()>& by) {
  by();
  EXPECT_TRUE(PumpUntil([&] { return HasFocus(box); })) << box;
}
inline void Enter(const std::string& next) {
  Reach(next, [] { Press(WXK_RETURN); });
}
inline void Type(const std::string& text) { User().Text(text.c_str()); }
inline void Escape() { Press(WXK_ESCAPE); }

/// Opens what a box offers and presses keys, which must close it.
inline void InDropDown(const std::function<void()>& open, const std::vector<int>& keys,
                       const std::string& name = "Menu_Popup") {
  open();
  EXPECT_TRUE(PumpUntil([&] { return Shown(name) != nullptr; })) << name;
  for (const int key : keys) Press(key);
  EXPECT_TRUE(PumpUntil([&] { return Shown(name) == nullptr; })) << name;
}

/// Opens what a box offers by its arrow and clicks at a place of it, in hundredths of its size.
inline void Pick(const std::string& box, const std::string& drop, int across, int down) {
  const wxRect cell = Box(box).GetParent()->GetScreenRect();
  ClickAt({cell.GetRight() - 5, cell.y + cell.height / 2});
  ASSERT_TRUE(PumpUntil([&] { return Shown(drop) != nullptr; })) << box;
  const wxRect place = Shown(drop)->GetScreenRect();
  ClickAt({place.x + place.width * across / 100, place.y + place.height * down / 100});
  EXPECT_TRUE(PumpUntil([&] { return Shown(drop) == nullptr; })) << box;
}

/// Opens a menu and presses keys in it. The menu has its own event loop and does not report
/// when it accepts keys, so this waits for a fixed time.
inline void InMenu(const std::function<void()>& open, std::vector<int> keys) {
  const wxLongLong begin = wxGetLocalTimeMillis();
  bool done = false;
  When([begin] { return wxGetLocalTimeMillis() - begin > 400; },
       [keys = std::move(keys), &done] {
         for (const int key : keys) Press(key);
         done = true;
       });
  open();
  EXPECT_TRUE(PumpUntil([&done] { return done; }));
}

}  // namespace zek::window
