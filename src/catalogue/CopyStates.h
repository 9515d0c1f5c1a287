#pragma once

#include <map>
#include <string>

#include "catalogue/Catalogue.h"
#include "catalogue/ControllerRecords.h"
#include "catalogue/LocalCopies.h"

namespace zek {

/// What the browser tells of one catalogue of a node.
struct CopyState {
  bool exists = false;  // there is a local copy
  std::string time;     // "2026-11-22 08:30", when the controller was last read or sent to; or ""
  bool unsent = false;  // the copy has lines of this node that its controller, as known, has not
  /// The controller, as known, has lines of this node that the copy has not: they were removed from
  /// the copy, or stayed in the controller when the copy was sent.
  bool fewer = false;
};

/// The states of the local copies. Each is read from the disk once, when it is first asked for.
class CopyStates {
 public:
  CopyStates(const LocalCopies& copies, const ControllerRecords& records)
      : copies_(copies), records_(records) {}

  /// `id.localFile` may be empty: then there is no copy.
  CopyState Of(const CatalogueId& id);

  /// The copies of these files are read again when they are next asked for.
  void Forget(const std::string& localFile);
  void ForgetAll();

 private:
  CopyState Read(const CatalogueId& id) const;
  CopyState OfControl(const CatalogueId& id, CopyState shared) const;

  const LocalCopies& copies_;
  const ControllerRecords& records_;
  std::map<std::string, CopyState> files_;  // by local file
  /// For controls of a shared copy that differs, by local file and control.
  std::map<std::string, std::map<std::string, CopyState>> controls_;
};

}  // namespace zek
