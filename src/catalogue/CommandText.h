#pragma once

#include <string>
#include <string_view>

#include "catalogue/Catalogue.h"

namespace zek {

/// True when `line` is a catalogue line to a controller and nothing else: numbered, with a "!",
/// without control characters and without a value's ".DFV". What stands in a local copy, or came
/// from a controller, could otherwise be taken for a command when it is sent.
bool IsCatalogueLine(std::string_view line);

/// True when there is nothing to send in `line`.
bool IsBlank(std::string_view line);

/// True when `text` stays one command on its way: without control characters and, over DDE, without
/// what the server turns into one ("{13}").
bool StaysOneCommand(std::string_view text, bool overDde);

/// True when the lines, the value and the name of the selected time control can be sent; else that
/// was told with the first that can't.
bool CheckSendable(ZV_Proc& proc, Catalogue catalogue);

/// The same for the name alone.
bool CheckNameSendable(ZV_Proc& proc);

}  // namespace zek
