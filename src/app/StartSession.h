#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/ZV_Proc.h"

namespace zek {

/// The exit status of every program.
enum ExitStatus : int { kDone = 0, kFailed = 1, kWrongUsage = 2, kWouldChange = 3 };

/// What differs between the programs when they start.
struct StartOptions {
  std::string_view switches;  // the switches on the command line
  bool contacts = true;       // false: the tag object is not needed, or only later (`NeedTags`)
  std::optional<std::string> sessionFile;  // its path, UTF-8, in place of the one of the settings
  /// Called if the language in the settings is missing; returns true if it loaded a language.
  std::function<bool()> chooseLanguage = [] { return false; };
  /// Called once messages have a language; returns the exit status if the program must end.
  std::function<std::optional<ExitStatus>()> mayStart = [] { return std::nullopt; };
};

/// Starts the session up to the topics, in this order: settings file, language, switches and
/// settings, tag object. Returns the exit status, after a message, if the program must end.
std::optional<ExitStatus> StartSession(ZV_Proc& proc, const StartOptions& options);

/// Call it before a controller is contacted, unless `StartOptions::contacts` was set: creates the
/// tag object in tag mode. Returns false, after a message, if that fails.
bool NeedTags(ZV_Proc& proc);

/// Loads the language file of the setting `Language`. Returns false if the setting is empty or the
/// file is missing; also, after a message, if the file can't be read.
bool LoadLanguage(ZV_Proc& proc);

/// Reads a file that came with the program ("zek_help.046"): from the program directory, else, if
/// the program was installed, from beside it. Copied files may have names in capitals.
FileContent ReadShipped(const ZV_Proc& proc, const std::string& name);

/// Lists the languages of both folders, those of the program directory first.
std::vector<LanguageChoice> LanguagesOf(const ZV_Proc& proc);

/// Says in one message, which names the program directory, that nothing can be stored there and
/// what to do. Says nothing if something can, or with "/VIEWONLY".
void TellUnlessWritable(ZV_Proc& proc);

/// Load the topics and build the tree of their time controls. Each message that they show means
/// that a part of the plant is left out, see `Batch::PlantCut`.
void LoadTopics(ZV_Proc& proc);
void LoadTree(ZV_Proc& proc);

}  // namespace zek
