#pragma once

#include <optional>
#include <string>

namespace zek {

/// The IPv4 address in dots of a host that is given by its address already; nothing for a name.
std::optional<std::string> NumericAddress(const std::string& host);

/// The IPv4 address in dots of a host; nothing when nobody knows it. Blocks while the system's
/// resolver asks around, many seconds when nobody answers; may be called from any thread.
std::optional<std::string> LookUpHost(const std::string& host);

}  // namespace zek
