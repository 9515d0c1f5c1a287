#include "comm/HostAddress.h"

#include <array>
#include <memory>

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#endif

namespace zek {
namespace {

// For any caller, also one before the toolkit's first socket.
void StartSockets() {
#ifdef _WIN32
  static const int started = [] {
    WSADATA about{};
    return ::WSAStartup(MAKEWORD(2, 2), &about);
  }();
  static_cast<void>(started);
#endif
}

struct FreeAddresses {
  void operator()(addrinfo* first) const { ::freeaddrinfo(first); }
};

std::optional<std::string> Find(const std::string& host, int flags) {
  StartSockets();
  addrinfo wanted{};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_flags = flags;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host.c_str(), nullptr, &wanted, &found) != 0) return std::nullopt;
  const std::unique_ptr<addrinfo, FreeAddresses> first(found);
  std::array<char, INET_ADDRSTRLEN> text{};
  const int error = ::getnameinfo(first->ai_addr, sizeof(sockaddr_in), text.data(), text.size(),
                                  nullptr, 0, NI_NUMERICHOST);
  if (error != 0) return std::nullopt;
  return text.data();
}

}  // namespace

std::optional<std::string> NumericAddress(const std::string& host) {
  return Find(host, AI_NUMERICHOST);
}

std::optional<std::string> LookUpHost(const std::string& host) { return Find(host, 0); }

}  // namespace zek
