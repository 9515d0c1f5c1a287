#pragma once

#include "catalogue/ObjectTree.h"
#include "comm/TopicTable.h"
#include "lang/Messages.h"

namespace zek {

/// Shows a message for each group of "PLT" controls of a ZEK1 with the same line numbers, and one
/// for all local copies that two nodes would use for different catalogues. Files whose names differ
/// only in case are one file.
void TellSharedPlaces(const ObjectTree& tree, const TopicTable& topics, const Messages& messages);

}  // namespace zek
