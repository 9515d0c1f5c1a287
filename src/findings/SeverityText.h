#pragma once

#include <cstdint>

#include "findings/FindingKinds.h"
#include "lang/TextNumbers.h"

namespace zek {

/// The number of the text that names the severity.
constexpr std::int32_t SeverityText(Severity severity) {
  if (severity == Severity::Error) return text::kSeverityError;
  return severity == Severity::Warning ? text::kSeverityWarning : text::kSeverityInformation;
}

}  // namespace zek
