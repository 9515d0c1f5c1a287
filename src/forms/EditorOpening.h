#pragma once

#include <string>
#include <vector>

#include "app/ZV_Proc.h"
#include "editors/PickList.h"
#include "forms/EditorTitle.h"

namespace zek {

/// Shows what the user should know when a catalogue of weekdays or exceptions is opened: whose
/// lines it has, that its pick-list is cut, and the lines that were not read.
template <class Refused>
void TellOpened(ZV_Proc& proc, const CatalogueContent& content, const PickList& pickList,
                const std::vector<Refused>& refused) {
  const std::string whole = WholeCatalogueText(proc, content);
  if (!whole.empty()) proc.prompts.Show(Icon::Information, whole);
  TellCut(pickList, proc.prompts, proc.texts);
  for (const Refused& each : refused) ShowRefused(each, proc.prompts, proc.texts);
}

}  // namespace zek
