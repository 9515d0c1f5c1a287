#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "formats/BuiltLines.h"
#include "lang/Messages.h"

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

/// The catalogue that an editor gives to be saved.
struct EditedCatalogue {
  BuiltLines lines;
  std::size_t linesLost = 0;            // of the catalogue as it was read, which saving loses
  RetryTexts retry{};                   // asked after a write that failed
  std::vector<std::string> notInLines;  // what the table holds and lines can't, in words
};

/// Has an edited catalogue written. Lines that can't be built are reported and nothing is written.
/// When saving loses lines that could not be read, the user is asked first; a failed write is
/// repeated as often as the user wants it.
SaveOutcome SaveWithRetry(const EditedCatalogue& edited, const CatalogueWriter& writer,
                          const Messages& messages);

}  // namespace zek
