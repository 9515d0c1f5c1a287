#include <winsock2.h>

#include "comm/SocketState.h"
#include "system/WinText.h"

namespace zek {

int PendingSocketError(std::uintptr_t socket) {
  int code = 0;
  int size = sizeof code;
  // The call takes bytes.
  ::getsockopt(static_cast<SOCKET>(socket), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&code),
               &size);
  return code;
}

std::string SocketErrorText(int code) { return SystemMessage(static_cast<unsigned long>(code)); }

// Windows does not tell: what it has taken counts as sent.
bool IsAllAcknowledged(std::uintptr_t /*socket*/) { return true; }

}  // namespace zek
