#pragma once

#include <gtest/gtest.h>
#include <string_view>
#include <utility>
#include <vector>

#include <wx/frame.h>
#include <wx/treectrl.h>

#include "Keys.h"
#include "PlantWorld.h"
#include "forms/browser/ZV_TSC.h"

namespace zek::window {

inline wxFrame& Browser() { return dynamic_cast<wxFrame&>(*Shown("ZV_TSC")); }
inline wxTreeCtrl& Tree() { return dynamic_cast<wxTreeCtrl&>(*Shown("TreeView")); }
inline wxWindow& CancelOfBrowser() { return *wxWindow::FindWindowById(wxID_CANCEL, &Browser()); }

/// True when the browser accepts keys and its tree is built.
inline bool InBrowser() {
  return IsActive("ZV_TSC") && HasFocus("TreeView") && Tree().GetSelection().IsOk();
}

/// Plays steps in the browser and in the forms opened from it, until it closes.
struct BrowserFixture : testing::Test {
  explicit BrowserFixture(std::string_view commandLine = {}) : world(commandLine) {}

  void Run(std::vector<Step> steps) {
    Play(std::move(steps));
    ShowBrowser(nullptr, world.session, world.turn);
  }
  /// True when a transfer waits and its cancel button is shown.
  bool CanCancel() const {
    return world.session.status.Busy > 0 && Shown("ZV_TSC") != nullptr &&
           CancelOfBrowser().IsShownOnScreen();
  }

  PlantWorld world;
};

}  // namespace zek::window
