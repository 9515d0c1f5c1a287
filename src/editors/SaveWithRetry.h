#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "formats/BuiltLines.h"
#include "lang/LanguageTexts.h"
#include "system/Prompts.h"

namespace zek {

/// Hands the lines of a catalogue to the catalogue write; true when they were written.
using CatalogueWriter = std::function<bool(const std::vector<std::string>& lines)>;

/// The numbers of the question whether to try a failed write again.
struct RetryTexts {
  std::int32_t question;
  std::int32_t title;
};

/// How a save ended.
enum class SaveOutcome {
  NotTried,  // the lines can't be built, or would lose others: nothing was written
  GivenUp,   // the write failed, and the user did not want another one
  Written,
};

/// Saves what an editor has built. Lines that can't be built are reported and nothing is written.
/// When saving loses lines that could not be read, the user is asked first; a failed write is
/// repeated as often as the user wants it.
SaveOutcome SaveWithRetry(const BuiltLines& built, std::size_t linesLost,
                          const CatalogueWriter& writer, RetryTexts retry, Prompts& prompts,
                          const LanguageTexts& texts);

}  // namespace zek
