#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "catalogue/Catalogues.h"
#include "formats/BuiltLines.h"
#include "lang/Messages.h"

namespace zek {

/// The mode of an editor. With `ViewOnly` nothing can be changed or saved.
enum class Access { Edit, ViewOnly };

/// Saves the lines of a catalogue (`Catalogues::SaveCatalogue`).
using CatalogueWriter = std::function<SaveResult(const std::vector<std::string>& lines)>;

/// The text numbers of the question whether to repeat a failed write.
struct RetryTexts {
  std::int32_t question;
  std::int32_t title;
};

/// The result of a save.
enum class SaveOutcome {
  NotTried,   // the lines can't be built, or would lose others; nothing was written
  NotStored,  // the local copy could not be written, and the user did not repeat it
  Refused,    // stored locally; the controller can't get it as it is
  GivenUp,    // stored locally; the write failed, and the user did not repeat it
  Written,
};

/// A catalogue from an editor, ready to be saved.
struct EditedCatalogue {
  BuiltLines lines;
  std::size_t linesLost = 0;            // lines of the catalogue as it was read that saving loses
  RetryTexts retry{};                   // asked after a failed write
  std::vector<std::string> notInLines;  // content of the table that lines can't hold, in words
  std::vector<std::string> notes{};     // what the user may not have meant, in words
};

/// Writes an edited catalogue. If the lines can't be built, it reports that and writes nothing. If
/// saving loses lines that could not be read, it asks the user first. A write that failed or was
/// declined is repeated as often as the user wants.
SaveOutcome SaveWithRetry(const EditedCatalogue& edited, const CatalogueWriter& writer,
                          const Messages& messages);

}  // namespace zek
