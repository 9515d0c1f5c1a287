#pragma once

#include <string>

#include "system/Files.h"

namespace zek {

/// The error for one of the system's codes: errno, or on Windows what GetLastError returns.
FileError FileErrorOf(const std::string& path, int code);

}  // namespace zek
