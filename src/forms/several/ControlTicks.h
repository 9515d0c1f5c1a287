#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/checklst.h>
#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "app/ZV_Proc.h"
#include "editors/PickList.h"

namespace zek {

/// The first step: ticks time controls, and controllers without any. A search shortens the list;
/// what is ticked stays so.
class ControlTicks final : public wxPanel {
 public:
  ControlTicks(wxWindow* parent, const ZV_Proc& proc, std::function<void()> changed);

  /// Ticks a control, or all of a controller.
  void TickNode(std::size_t node);

  bool Any() const;
  /// The names of what is ticked, see `NodeName`.
  std::vector<std::string> Nodes() const;
  /// The pick-list of all that are ticked; empty if they have different ones.
  PickList Names() const;

  void Enter();

 private:
  void Build();
  void ShowNodes();
  void TickShown(bool on);
  void ShowCount();

  const ZV_Proc& proc_;
  std::function<void()> changed_;
  std::vector<bool> listed_;        // by node
  std::vector<bool> ticked_;        // by node
  std::vector<std::size_t> shown_;  // nodes
  wxTextCtrl* Text_Search = nullptr;
  wxCheckListBox* List_Controls = nullptr;
  wxStaticText* Label_Count = nullptr;
};

}  // namespace zek
