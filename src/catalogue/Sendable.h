#pragma once

#include <string>
#include <string_view>

#include "catalogue/CatalogueSend.h"

namespace zek {

/// True when `line` can only be read as a catalogue line: it has a number and a "!", no control
/// characters and no ".DFV". Any other text from a local copy or a controller could act as a
/// command when it is sent.
bool IsCatalogueLine(std::string_view line);

/// True when `line` contains nothing to send.
bool IsBlank(std::string_view line);

/// True when `text` stays one command on its way: it has no control characters and, where the link
/// interprets escapes (DDE), no escape like "{13}".
bool StaysOneCommand(std::string_view text, bool readsEscapes);

/// Returns false, after a message about the first problem, if the lines, the value or the control's
/// name can't be sent.
bool CheckSendable(const CatalogueId& id, const LinesToSend& content, const CatalogueParts& parts);

/// Checks the control's name alone in the same way.
bool CheckNameSendable(const CatalogueId& id, const CatalogueParts& parts);

}  // namespace zek
