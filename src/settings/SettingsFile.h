#pragma once

#include <memory>
#include <string>

#include "settings/Profile.h"

namespace zek {

/// The settings file at `path`, read by the platform's profile calls where the system has them,
/// else by our own code, which behaves the same; written by that everywhere. `files` outlives it.
std::unique_ptr<Profile> OpenSettingsFile(Files& files, const std::string& path);

}  // namespace zek
