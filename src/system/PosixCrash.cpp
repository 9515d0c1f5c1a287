#include <array>
#include <csignal>
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <ucontext.h>
#include <unistd.h>

#include "system/CrashSystem.h"

namespace zek::crash {
namespace {

constexpr unsigned kMostSeconds = 5;
constexpr std::size_t kHandlerStack = std::size_t{64} << 10;
constexpr std::size_t kMostCalls = 96;  // those of the handler among them

struct SignalName {
  int number;
  std::string_view name;
};
constexpr std::array<SignalName, 5> kSignals = {{{SIGSEGV, "access violation"},
                                                 {SIGBUS, "bus error"},
                                                 {SIGFPE, "arithmetic fault"},
                                                 {SIGILL, "illegal instruction"},
                                                 {SIGABRT, "abort"}}};

// Ends with the signal itself, so that its sender and a core file tell the same as ever.
void OnFault(int number, siginfo_t* info, void* context) {
  for (const SignalName& each : kSignals) {
    if (each.number != number) continue;
    const void* const address = number == SIGABRT ? nullptr : info->si_addr;
    Write({each.name, static_cast<std::uint64_t>(number), address, context});
    Record();
  }
  std::signal(number, SIG_DFL);
  ::raise(number);
}

// The address at which the signal came; 0 where that is not known.
std::uintptr_t InstructionOf([[maybe_unused]] const Fault& fault) {
#ifdef REG_RIP
  if (fault.context != nullptr) {
    const auto* const context = static_cast<const ucontext_t*>(fault.context);
    return static_cast<std::uintptr_t>(context->uc_mcontext.gregs[REG_RIP]);
  }
#endif
  return 0;
}

}  // namespace

void CatchFaults() {
  static std::array<char, kHandlerStack> memory;  // after an overflow the usual stack is full
  stack_t stack{};
  stack.ss_sp = memory.data();
  stack.ss_size = memory.size();
  ::sigaltstack(&stack, nullptr);
  std::array<void*, 1> once{};
  ::backtrace(once.data(), 1);  // loads its library now
  for (const SignalName& each : kSignals) {
    struct sigaction before {};
    if (::sigaction(each.number, nullptr, &before) != 0 || before.sa_handler != SIG_DFL) continue;
    struct sigaction action {};
    action.sa_sigaction = OnFault;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    ::sigaction(each.number, &action, nullptr);
  }
}

void LimitTime() { ::alarm(kMostSeconds); }

std::size_t StackOf(const Fault& fault, std::span<const void*> frames) {
  std::array<void*, kMostCalls> all{};
  const auto count = static_cast<std::size_t>(::backtrace(all.data(), kMostCalls));
  std::size_t first = 0;  // before it are the calls of the handler
  const std::uintptr_t instruction = InstructionOf(fault);
  for (std::size_t i = 0; i < count; ++i) {
    if (reinterpret_cast<std::uintptr_t>(all[i]) == instruction) first = i;
  }
  std::size_t used = 0;
  for (std::size_t i = first; i < count && used < frames.size(); ++i) frames[used++] = all[i];
  return used;
}

Place PlaceOf(const void* address) {
  Place place;
  place.offset = reinterpret_cast<std::uintptr_t>(address);
  Dl_info info{};
  if (::dladdr(address, &info) == 0 || info.dli_fname == nullptr) return place;
  std::string_view name = info.dli_fname;
  name.remove_prefix(name.rfind('/') + 1);
  name.substr(0, place.module.size() - 1).copy(place.module.data(), place.module.size() - 1);
  place.offset -= reinterpret_cast<std::uintptr_t>(info.dli_fbase);
  return place;
}

std::uint64_t ProcessNumber() { return static_cast<std::uint64_t>(::getpid()); }

bool Store(const char* folder, const char* path, std::string_view bytes) {
  constexpr mode_t everybody = 0777;  // less what the user's mask takes away
  ::mkdir(folder, everybody);
  const int file = ::open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, everybody & 0666);
  if (file < 0) return false;
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written <= 0) break;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return ::close(file) == 0 && bytes.empty();
}

}  // namespace zek::crash
