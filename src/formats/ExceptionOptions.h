#pragma once

#include <cstdint>
#include <optional>

#include "formats/Generation.h"
#include "settings/Settings.h"

namespace zek {

/// How the lines of an exception catalogue are numbered, see `BuildExceptions`.
struct ExceptionOptions {
  std::int16_t OVCStartRow = 1;
  std::int16_t OVCMultiplyPLT = 0;
};

/// The settings of section `SaveOptionsZEK1` or `SaveOptionsZEK2`, by default 1 and 100 or 1 and 0.
/// Nothing when one does not fit 16 bits, which was told.
std::optional<ExceptionOptions> ReadExceptionOptions(const NumberReader& numbers,
                                                     Generation generation);

}  // namespace zek
