#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "app/ExitStatus.h"
#include "app/ZV_Proc.h"

namespace zek {

/// What differs between the programs when they start.
struct StartOptions {
  std::string_view switches;  // of the command line
  /// Called when the settings name no language that is there; true when one was loaded.
  std::function<bool()> chooseLanguage = [] { return false; };
  /// Called once messages have a language; the exit status when the program is not to go on.
  std::function<std::optional<ExitStatus>()> mayStart = [] { return std::nullopt; };
};

/// Everything ahead of the topics, in this order: the settings file, the language, switches and
/// settings, the tag object. The exit status when the program ends here, which was shown.
std::optional<ExitStatus> StartSession(ZV_Proc& proc, const StartOptions& options);

/// Loads the language file that setting `Language` names. False when there is none; a file that
/// can't be read is reported.
bool LoadLanguage(ZV_Proc& proc);

/// Loads the topics and builds the tree of their time controls. Every message on the way is about
/// a part of the plant that is left out, see `Batch::PlantCut`.
void LoadTopics(ZV_Proc& proc);
void LoadTree(ZV_Proc& proc);

}  // namespace zek
