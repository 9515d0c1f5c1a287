#include <windows.h>
#include <array>
#include <atomic>
#include <csignal>

#include "system/CrashSystem.h"

namespace zek::crash {
namespace {

constexpr ULONG kHandlerStack = 64 << 10;
constexpr DWORD kMostMilliseconds = 5000;
constexpr int kExitOfAbort = 3;
constexpr std::size_t kLongestPath = 4096;

struct ExceptionName {
  DWORD code;
  std::string_view name;
};
constexpr std::array<ExceptionName, 5> kExceptions = {
    {{EXCEPTION_ACCESS_VIOLATION, "access violation"},
     {EXCEPTION_IN_PAGE_ERROR, "page error"},
     {EXCEPTION_STACK_OVERFLOW, "stack overflow"},
     {EXCEPTION_INT_DIVIDE_BY_ZERO, "arithmetic fault"},
     {EXCEPTION_ILLEGAL_INSTRUCTION, "illegal instruction"}}};

// A thread that waits for a fault: after an overflow the faulty thread has no stack for a report.
struct Writer {
  HANDLE wanted = nullptr;
  HANDLE done = nullptr;
  const Fault* fault = nullptr;
  std::atomic_flag begun = ATOMIC_FLAG_INIT;
  std::atomic<bool> stored = false;
};
Writer writer;  // NOLINT(*-non-const-global-variables): handlers receive nothing else

DWORD WINAPI AwaitFault(void* /*nothing*/) {
  ::WaitForSingleObject(writer.wanted, INFINITE);
  writer.stored = Write(*writer.fault);
  Record();
  ::SetEvent(writer.done);
  return 0;
}

bool WriteElsewhere(const Fault& fault) {
  if (!writer.begun.test_and_set()) {
    writer.fault = &fault;
    ::SetEvent(writer.wanted);
  }
  ::WaitForSingleObject(writer.done, kMostMilliseconds);
  return writer.stored;
}

bool WriteException(const EXCEPTION_POINTERS& exception) {
  const EXCEPTION_RECORD& record = *exception.ExceptionRecord;
  Fault fault{"exception", record.ExceptionCode, record.ExceptionAddress, exception.ContextRecord};
  for (const ExceptionName& each : kExceptions) {
    if (each.code == record.ExceptionCode) fault.name = each.name;
  }
  const bool access = record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION;
  if (access && record.NumberParameters > 1) {
    fault.address = reinterpret_cast<const void*>(record.ExceptionInformation[1]);
  }
  return WriteElsewhere(fault);
}

// Without a report, the system tells in its own way. With one, the program ends at once: nobody may
// be there to close a box.
LONG WINAPI OnException(EXCEPTION_POINTERS* exception) {
  return WriteException(*exception) ? EXCEPTION_EXECUTE_HANDLER : EXCEPTION_CONTINUE_SEARCH;
}

// The search for a handler would need more stack than is left.
LONG WINAPI OnFirstChance(EXCEPTION_POINTERS* exception) {
  const DWORD code = exception->ExceptionRecord->ExceptionCode;
  if (code == EXCEPTION_STACK_OVERFLOW && WriteException(*exception))
    ::TerminateProcess(::GetCurrentProcess(), code);
  return EXCEPTION_CONTINUE_SEARCH;
}

// Ends here: the runtime would show a box.
void OnAbort(int /*number*/) {
  CONTEXT context{};
  ::RtlCaptureContext(&context);
  WriteElsewhere({"abort", SIGABRT, nullptr, &context});
  ::TerminateProcess(::GetCurrentProcess(), kExitOfAbort);
}

HMODULE ModuleOf(const void* address) {
  HMODULE module = nullptr;
  constexpr DWORD how =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  ::GetModuleHandleExW(how, static_cast<LPCWSTR>(address), &module);
  return module;
}

}  // namespace

void CatchFaults() {
  ULONG size = kHandlerStack;
  ::SetThreadStackGuarantee(&size);
  writer.wanted = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  writer.done = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  HANDLE const thread = ::CreateThread(nullptr, 0, AwaitFault, nullptr, 0, nullptr);
  if (thread == nullptr) return;
  ::CloseHandle(thread);
  ::AddVectoredExceptionHandler(0, OnFirstChance);
  ::SetUnhandledExceptionFilter(OnException);
  std::signal(SIGABRT, OnAbort);
}

void LimitTime() {}  // `WriteElsewhere` does

#ifdef _WIN64
std::size_t StackOf(const Fault& fault, std::span<const void*> frames) {
  CONTEXT context{};
  ::RtlCaptureContext(&context);
  if (fault.context != nullptr) context = *static_cast<const CONTEXT*>(fault.context);
  std::size_t used = 0;
  while (used < frames.size() && context.Rip != 0) {
    frames[used++] = reinterpret_cast<const void*>(context.Rip);
    DWORD64 base = 0;
    const PRUNTIME_FUNCTION function = ::RtlLookupFunctionEntry(context.Rip, &base, nullptr);
    if (function == nullptr) {
      // A function that calls nothing; also a call that led nowhere.
      if (context.Rsp == 0) break;
      context.Rip = *reinterpret_cast<const DWORD64*>(context.Rsp);
      context.Rsp += sizeof(DWORD64);
      continue;
    }
    void* data = nullptr;
    DWORD64 frame = 0;
    ::RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &data, &frame,
                       nullptr);
  }
  return used;
}
#else
// Nothing tells where the calls are on this stack: everything that may be a return address.
std::size_t StackOf(const Fault& fault, std::span<const void*> frames) {
  CONTEXT context{};
  ::RtlCaptureContext(&context);
  if (fault.context != nullptr) context = *static_cast<const CONTEXT*>(fault.context);
  frames[0] = reinterpret_cast<const void*>(context.Eip);
  std::size_t used = 1;
  MEMORY_BASIC_INFORMATION stack{};
  const auto* word = reinterpret_cast<const void* const*>(context.Esp & ~DWORD{3});
  if (::VirtualQuery(word, &stack, sizeof stack) == 0 || stack.Protect != PAGE_READWRITE)
    return used;
  const void* const end = static_cast<const std::byte*>(stack.BaseAddress) + stack.RegionSize;
  for (; word < end && used < frames.size(); ++word) {
    if (ModuleOf(*word) != nullptr) frames[used++] = *word;
  }
  return used;
}
#endif

Place PlaceOf(const void* address) {
  Place place;
  place.offset = reinterpret_cast<std::uintptr_t>(address);
  static std::array<wchar_t, kLongestPath> path;
  HMODULE const module = ModuleOf(address);
  const DWORD length =
      module == nullptr ? 0 : ::GetModuleFileNameW(module, path.data(), kLongestPath);
  if (length == 0 || length >= kLongestPath) return place;
  std::wstring_view name(path.data(), length);
  name.remove_prefix(name.rfind(L'\\') + 1);
  ::WideCharToMultiByte(CP_UTF8, 0, name.data(), static_cast<int>(name.size()), place.module.data(),
                        static_cast<int>(place.module.size() - 1), nullptr, nullptr);
  place.offset -= reinterpret_cast<std::uintptr_t>(module);
  return place;
}

std::uint64_t ProcessNumber() { return ::GetCurrentProcessId(); }

bool Store(const char* folder, const char* path, std::string_view bytes) {
  static std::array<wchar_t, kLongestPath> wide;
  ::MultiByteToWideChar(CP_UTF8, 0, folder, -1, wide.data(), kLongestPath);
  ::CreateDirectoryW(wide.data(), nullptr);
  ::MultiByteToWideChar(CP_UTF8, 0, path, -1, wide.data(), kLongestPath);
  HANDLE const file = ::CreateFileW(wide.data(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const auto size = static_cast<DWORD>(bytes.size());
  const bool done = ::WriteFile(file, bytes.data(), size, &written, nullptr) != 0;
  return ::CloseHandle(file) != 0 && done && written == size;
}

}  // namespace zek::crash
