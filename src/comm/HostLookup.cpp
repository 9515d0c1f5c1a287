#include "comm/HostLookup.h"

#include <array>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

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

// The caller may come before the toolkit has started the sockets.
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

/// Data that the thread shares with the object that started it.
struct HostLookup::Order {
  std::mutex mutex;  // guards `later`
  Later later;       // empty after a cancel
  Done done;         // the thread does not use it
};

HostLookup::HostLookup(Resolve resolve, Later later)
    : resolve_(std::move(resolve)), later_(std::move(later)) {}

bool HostLookup::Begin(const std::string& host, Done done) {
  Cancel();
  if (*threads_ >= kMostThreads) return false;
  auto order = std::make_shared<Order>();
  order->later = later_;
  order->done = std::move(done);
  const auto answer = [](const std::shared_ptr<Order>& asked, std::optional<std::string> address) {
    const std::lock_guard lock(asked->mutex);
    if (!asked->later) return;
    asked->later([asked, address = std::move(address)] {
      // The call may start the next lookup or destroy the HostLookup.
      if (const Done call = std::exchange(asked->done, nullptr)) call(address);
    });
  };
  ++*threads_;
  try {
    std::thread([host, order, answer, resolve = resolve_, threads = threads_] {
      answer(order, resolve(host));
      --*threads;
    }).detach();
  } catch (const std::system_error&) {
    --*threads_;
    return false;
  }
  order_ = std::move(order);
  return true;
}

void HostLookup::Cancel() {
  const std::shared_ptr<Order> order = std::exchange(order_, nullptr);
  if (!order) return;
  const std::lock_guard lock(order->mutex);
  order->later = nullptr;
  order->done = nullptr;
}

}  // namespace zek
