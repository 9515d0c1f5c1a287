#pragma once

#include <functional>
#include <string>

#include "lang/LanguageTexts.h"
#include "lang/Messages.h"
#include "settings/DataFolder.h"

namespace zek {

/// Returns the message that nothing can be stored in a folder: which one, why, and what to do.
std::string NotWritableMessage(const LanguageTexts& texts, const FileError& problem);

/// The texts before there are settings: of the language chosen at the installation, else of the
/// settings that came with the program.
LanguageTexts FirstTexts(Files& files, const Folders& folders);

/// Gives a new data folder its settings: offers to take over an older folder, which `choose` lets
/// the user choose ("": none after all), or begins afresh. Returns false if the folder still has no
/// settings: after a message because it can't be written, or because the user cancelled.
bool PrepareDataFolder(Files& files, const Folders& folders, const Messages& toUser,
                       const std::function<std::string()>& choose);

}  // namespace zek
