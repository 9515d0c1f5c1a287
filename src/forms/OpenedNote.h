#pragma once

#include <wx/stattext.h>
#include <wx/timer.h>

#include "app/ZV_Proc.h"

namespace zek {

/// Says in an editor who else has its catalogue open; hidden while nobody has. If the editor can
/// save, the others are told until `End`. See `OpenMarks`.
class OpenedNote : public wxStaticText {
 public:
  OpenedNote(wxWindow* parent, ZV_Proc& proc, CatalogueId id, bool edits);
  OpenedNote(const OpenedNote&) = delete;
  OpenedNote& operator=(const OpenedNote&) = delete;
  ~OpenedNote() override { End(); }

  /// The editor has closed. A closed window may outlive the session.
  void End();

 private:
  void Look();

  OpenMarks& marks_;
  CatalogueId id_;
  wxTimer timer_;
  bool ended_ = false;
};

}  // namespace zek
