#pragma once

#include <string>

#include "app/ZV_Proc.h"
#include "comm/TopicEntry.h"

namespace zek {

/// Change the controllers in the settings file while the program runs. Each change disconnects,
/// writes one line of section "Topics" (all others stay byte for byte) and reads the topics again.
/// Return false, after a message, if the file can't be written.

/// Adds the controller, or changes the one of that name. If nothing in the settings selects the
/// topics of the list, all of them are listed from now on. Also refused, after a message: a name
/// that only the file has, and a section so long that a line may be cut.
bool SaveTopic(ZV_Proc& proc, const TopicEntry& entry);

/// Removes the line of the controller. The section with its time controls stays.
bool RemoveTopic(ZV_Proc& proc, const std::string& name);

/// What a controller answered. Stopped: the user has cancelled, or the program ends.
enum class Contact { None, Silent, Answers, Stopped };

/// Connects to a controller that need not be in the settings, sends an empty command and
/// disconnects. Connection faults are shown to the user, who can cancel.
Contact TestTopic(ZV_Proc& proc, const TopicEntry& entry);

}  // namespace zek
