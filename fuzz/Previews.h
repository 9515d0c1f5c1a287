#pragma once

#include <string>

#include "RandomTables.h"

namespace zek::fuzz {

/// Imports a random file into a random calendar. Returns how the result differs from what the
/// preview listed and was ticked in it, or "". `text` receives the file's text.
std::string PreviewFault(Random& random, std::string& text);

}  // namespace zek::fuzz
