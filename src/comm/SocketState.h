#pragma once

#include <cstdint>
#include <string>

namespace zek {

/// What the toolkit's sockets keep to themselves. Sockets are the system's own numbers.

/// The system's error code that waits at a socket; 0 when there is none.
int PendingSocketError(std::uintptr_t socket);

/// The system's own words for such a code.
std::string SocketErrorText(int code);

/// The other side has acknowledged all that was written, as far as the system tells.
bool IsAllAcknowledged(std::uintptr_t socket);

}  // namespace zek
