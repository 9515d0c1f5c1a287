#pragma once

#include <cstdint>
#include <string>

namespace zek {

// Socket states that the toolkit does not expose. `socket` is the system's handle.

/// Returns the pending error code of a socket; 0 without an error.
int PendingSocketError(std::uintptr_t socket);

/// Returns the system's message for such a code.
std::string SocketErrorText(int code);

/// True if the other side has acknowledged all written bytes, as far as the system reports it.
bool IsAllAcknowledged(std::uintptr_t socket);

}  // namespace zek
