#pragma once

#include <functional>
#include <optional>
#include <string>

#include <wx/button.h>
#include <wx/gauge.h>
#include <wx/listctrl.h>
#include <wx/panel.h>
#include <wx/stattext.h>

#include "app/ZV_Proc.h"
#include "plan/PlanRun.h"
#include "ui/EntryBox.h"

namespace zek {

/// The third step: shows a plan, what becomes of it, and when it starts.
class PlanPanel final : public wxPanel {
 public:
  struct Actions {
    std::function<void()> start;
    std::function<void()> startLater;
    std::function<void()> cancel;
    std::function<void()> saveReport;
  };

  PlanPanel(wxWindow* parent, const ZV_Proc& proc, const PlanRun& run, const Actions& actions);

  /// Shows the lines that are new since the last call, or all of another plan.
  void ShowLines();
  /// Says how it stands; while it is made or sent also how far it has come.
  void ShowState(const std::string& state);
  std::string State() const;
  /// What it waits for: the user, the chosen time, or the end of a transfer.
  enum class Waits { User, Start, Transfer };
  void ShowActions(Waits waits);

  /// The chosen time, or nothing, after it was marked, if it is none or in the past.
  std::optional<LocalTime> ChosenTime();
  wxButton& CancelButton() { return *Command_CancelPlan; }
  void Enter();

 private:
  void Build(const Actions& actions);
  wxSizer* Commands(const Actions& actions);

  const ZV_Proc& proc_;
  const PlanRun& run_;
  wxStaticText* Label_State = nullptr;
  wxListView* List_Plan = nullptr;
  wxGauge* Gauge_Plan = nullptr;
  wxButton* Command_Start = nullptr;
  wxButton* Command_StartLater = nullptr;
  EntryBox* Text_StartDate = nullptr;
  EntryBox* Text_StartClock = nullptr;
  wxButton* Command_SaveReport = nullptr;
  wxButton* Command_CancelPlan = nullptr;
};

}  // namespace zek
