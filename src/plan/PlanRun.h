#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/ZV_Proc.h"
#include "plan/ChangeList.h"
#include "plan/Plan.h"

namespace zek {

/// A plan of a window: made, kept in the folder "Plans" of the program directory, sent, and after a
/// crash or a failure sent again. A kept plan without a report (".txt") has not ended. While it is
/// kept or taken here, no other program can take, send or end it.
class PlanRun {
 public:
  /// `changed` is called when a line was added.
  PlanRun(ZV_Proc& proc, std::function<void()> changed)
      : proc_(proc), changed_(std::move(changed)) {}

  /// Plans changes of nodes, see `Planner`. If it is cancelled, there is no plan.
  void Make(std::span<const ListedChange> changes, const std::vector<std::string>& nodes);

  /// Stores the plan, unless it is stored. The functions that return a text return why it failed,
  /// or "".
  std::string Keep();
  /// Stores the plan and applies it. Ended is what a second try would not change; of the rest the
  /// plan stays open.
  std::string Send();
  /// Takes a plan that was kept; `name` is one of `OpenPlans`.
  std::string Take(const std::string& name);
  /// Removes a plan that was kept and not begun.
  void Drop();
  /// Ends an open plan as it is; its report tells how far it came. Fails while another program has
  /// it.
  std::string GiveUp(const std::string& name);
  /// Forgets the plan; a kept one stays kept.
  void Clear();

  /// While it is made or sent: the catalogues that are left are not tried. The present transfer is
  /// cancelled like any other.
  void Cancel() { cancel_(); }

  /// The names of the kept plans that have not ended and that no other program has, the oldest
  /// first.
  std::vector<std::string> OpenPlans() const;
  /// "2026-11-22 08:30:00", when a plan was kept.
  static std::string TimeOf(const std::string& name);

  bool IsBusy() const { return busy_; }
  bool CanSend() const { return !plan_.catalogues.empty() && !busy_; }
  std::size_t Catalogues() const { return plan_.catalogues.size(); }
  /// The expected time of sending.
  int Seconds() const { return PlanSeconds(plan_, proc_.Numbers()); }

  const std::vector<PlanLine>& Lines() const { return lines_; }
  /// How many lines there will be.
  std::size_t Total() const { return total_; }
  std::size_t Count(PlanWord word) const;
  /// The catalogues that have the change, after sending.
  std::size_t Changed() const { return Count(PlanWord::Done) + Count(PlanWord::Already); }
  /// What became of the plan, windows-1252 with lines that end in CR LF.
  std::string Report(const std::string& headline) const;

 private:
  void Add(const PlanLine& line, std::size_t total);
  bool HasBegun() const;
  bool HasEnded() const;
  bool IsElsewhere(const std::string& name) const;
  std::string PathOf(const std::string& name) const;
  std::string PlanPath(const std::string& name) const;
  std::string StoreReport(const std::string& name, const std::string& report);
  std::string ReportSoFar() const;
  std::string Row(const PlanLine& line) const;
  void KeepSoFar();

  ZV_Proc& proc_;
  std::function<void()> changed_;
  std::function<void()> cancel_ = [] {};
  Plan plan_;
  std::string name_;  // of the kept plan; "" if it is not kept
  std::unique_ptr<FileLock> lock_;
  std::vector<PlanLine> lines_;
  std::size_t total_ = 0;
  bool busy_ = false;
};

/// "Ändra på flera"
std::string SeveralTitle(const LanguageTexts& texts);

}  // namespace zek
