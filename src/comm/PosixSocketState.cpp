#include <cstring>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include "comm/SocketState.h"

namespace zek {

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

}  // namespace zek
