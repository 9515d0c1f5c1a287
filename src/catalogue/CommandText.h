#pragma once

#include <string>
#include <string_view>

#include "catalogue/Catalogues.h"

namespace zek {

/// True when `line` is a catalogue line to a controller and nothing else: numbered, with a "!",
/// without control characters and without a value's ".DFV". What stands in a local copy, or came
/// from a controller, could otherwise be taken for a command when it is sent.
bool IsCatalogueLine(std::string_view line);

/// True when there is nothing to send in `line`.
bool IsBlank(std::string_view line);

/// True when `text` stays one command on its way: without control characters and, where the way
/// to the controller reads escapes (DDE), without one like "{13}".
bool StaysOneCommand(std::string_view text, bool readsEscapes);

/// True when the lines, the value and the control's name can be sent; else the first that can't was
/// shown.
bool CheckSendable(const CatalogueId& id, const CatalogueDraft& draft, const CatalogueParts& parts);

/// The same for the name alone.
bool CheckNameSendable(const CatalogueId& id, const CatalogueParts& parts);

}  // namespace zek
