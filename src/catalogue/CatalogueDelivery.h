#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/CatalogueFetch.h"
#include "catalogue/CatalogueSend.h"
#include "catalogue/CatalogueVerify.h"
#include "catalogue/Catalogues.h"
#include "catalogue/SendQuestion.h"

namespace zek {

/// What a write changes.
struct SavePlan {
  LinesToSend send;
  Expected expected;             // afterwards
  std::vector<std::string> all;  // the whole catalogue afterwards: others' lines, then the own ones
  std::vector<std::string> missing;  // lines of others that an earlier write lost; sent again
  bool whole = true;                 // the lines of all controls are sent
  CatalogueContent now;              // what the controller has; `LinesFrom::Nowhere` if unknown
  std::string since;                 // when `now` was read; "" if just now
  bool mixed = false;                // parts of a sending that failed may be there, too
};

/// Sends a plan, finds out what became of it and shows that to the user. A write to a shared
/// catalogue is unfinished (see `ControllerRecords`) until each other control's line was found
/// again; if lines are missing, sending the whole catalogue is offered once.
class CatalogueDelivery {
 public:
  CatalogueDelivery(const CatalogueId& id, const CatalogueParts& parts, const FetchDelays& delays)
      : id_(id), p_(parts), delays_(delays) {}

  SaveResult::Outcome Run(const SavePlan& plan);

  /// Sends the lines that an earlier write lost, with the whole catalogue.
  SaveResult::Outcome SendAgain(const SavePlan& plan);

  /// False if nothing was sent, so that the controller is as it was.
  bool Begun() const { return begun_; }

  /// The catalogue that the controller has after a write that began; `LinesFrom::Nowhere` if that
  /// is not known.
  const CatalogueContent& Known() const { return known_; }

 private:
  bool NeedsCheck(const SavePlan& plan) const;
  SaveResult::Outcome Failed(const SavePlan& plan, const SendReport& report);
  void TellMixture(const SavePlan& plan, std::string message, bool answered);
  SaveResult::Outcome Check(const SavePlan& plan);
  SaveResult::Outcome NotChecked(const SavePlan& plan, const Verification& check);
  SaveResult::Outcome NotConfirmed(const SavePlan& plan, const Verification& check,
                                   const Verification& second);
  std::vector<std::string> Remaining(const SavePlan& plan, const Verification& check) const;
  std::string OthersChanged(const Verification& check) const;
  SaveResult::Outcome Judge(const SavePlan& plan, const Verification& check);
  static bool HasLostAllOthers(const SavePlan& plan, const Verification& check);
  void RememberSeen(const SavePlan& plan, const Verification& check);
  SaveResult::Outcome Repair(const SavePlan& plan, const Verification& check);
  bool AskRepair(const Verification& check, bool replacesAll) const;
  void Note(std::string_view journal, std::size_t lines);
  SaveResult::Outcome Ended(const SavePlan& plan, std::string_view journal,
                            SaveResult::Outcome outcome, const std::string& message,
                            const std::string& details = {});
  void Show(Icon icon, const std::string& message, const std::string& details, std::int32_t label);

  const CatalogueId& id_;
  const CatalogueParts& p_;
  FetchDelays delays_;
  CatalogueContent known_;
  bool begun_ = false;
};

}  // namespace zek
