#pragma once

#include <optional>
#include <string>

#include "commands/Commands.h"

namespace zek::cli {

/// The bytes of FILE ("-" = standard input); nothing when it can't be read, which was told.
std::optional<std::string> ReadFileOperand(Console& console, const std::string& file);

}  // namespace zek::cli
