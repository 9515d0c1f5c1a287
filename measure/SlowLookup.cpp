// Preload this library into a program to simulate a name server that does not answer: looking up a
// name fails after three seconds. Numeric addresses work as usual.

#include <arpa/inet.h>
#include <cerrno>
#include <dlfcn.h>
#include <netdb.h>
#include <unistd.h>

namespace {

constexpr unsigned kSeconds = 3;

bool IsName(const char* host) {
  in_addr address{};
  return host != nullptr && inet_aton(host, &address) == 0;
}

}  // namespace

extern "C" {
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's names are
// reserved.

int getaddrinfo(const char* host, const char* service, const addrinfo* wanted, addrinfo** found) {
  using Function = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
  const bool numeric = wanted != nullptr && (wanted->ai_flags & AI_NUMERICHOST) != 0;
  if (IsName(host) && !numeric) {
    sleep(kSeconds);
    return EAI_AGAIN;
  }
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, "getaddrinfo"))(host, service, wanted, found);
}

int gethostbyname_r(const char* host, hostent* entry, char* buffer, size_t size, hostent** found,
                    int* error) {
  using Function = int (*)(const char*, hostent*, char*, size_t, hostent**, int*);
  if (IsName(host)) {
    sleep(kSeconds);
    *found = nullptr;
    *error = TRY_AGAIN;
    return EAGAIN;
  }
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, "gethostbyname_r"))(host, entry, buffer, size,
                                                                         found, error);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
}
