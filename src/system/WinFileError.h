#pragma once

#include <string>

#include "system/Files.h"

namespace zek {

/// The error for one of the system's codes.
FileError WinFileError(const std::string& path, unsigned long code);

}  // namespace zek
