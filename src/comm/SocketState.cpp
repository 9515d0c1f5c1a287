#include "comm/SocketState.h"

#ifdef _WIN32
#include <winsock2.h>

#include "system/WinText.h"
#else
#include <cstring>
#include <sys/ioctl.h>
#include <sys/socket.h>
#endif

namespace zek {

#ifdef _WIN32

int PendingSocketError(std::uintptr_t socket) {
  int code = 0;
  int size = sizeof code;
  // Winsock declares the value as bytes.
  ::getsockopt(static_cast<SOCKET>(socket), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&code),
               &size);
  return code;
}

std::string SocketErrorText(int code) { return SystemMessage(static_cast<unsigned long>(code)); }

// Windows does not report acknowledgements: bytes that it accepted count as sent.
bool IsAllAcknowledged(std::uintptr_t /*socket*/) { return true; }

#else

int PendingSocketError(std::uintptr_t socket) {
  int code = 0;
  socklen_t size = sizeof code;
  ::getsockopt(static_cast<int>(socket), SOL_SOCKET, SO_ERROR, &code, &size);
  return code;
}

std::string SocketErrorText(int code) { return std::strerror(code); }

bool IsAllAcknowledged(std::uintptr_t socket) {
  int unacknowledged = 0;
  const bool known = ::ioctl(static_cast<int>(socket), TIOCOUTQ, &unacknowledged) == 0;
  return known && unacknowledged == 0;
}

#endif

}  // namespace zek
