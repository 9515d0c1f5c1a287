#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// What a crash report needs of the system. After a fault the program's memory may be damaged and
/// its locks may be held: nothing here allocates, and everything else was prepared before.
namespace zek::crash {

struct Fault {
  std::string_view name;          // "access violation"
  std::uint64_t code = 0;         // the system's number for it
  const void* address = nullptr;  // what was accessed
  void* context = nullptr;        // the system's state of the thread; null: call `Write` there
};

/// Writes the report, of the first fault only. Returns true if it could be stored.
bool Write(const Fault& fault);

/// Records the crash in the system's log of events if that is wanted. Takes memory and locks, so
/// call it last; it may never return.
void Record();

/// Where an address is.
struct Place {
  std::array<char, 64> module{};  // its file's name without the folder; "" if there is none
  std::uintptr_t offset = 0;      // from the module's beginning, else the address itself
};

/// From now on faults call `Write`.
void CatchFaults();

/// Ends the program soon if writing the report does not end.
void LimitTime();

/// Fills `frames` with addresses in the calls that led to the fault, the innermost first; returns
/// how many there are.
std::size_t StackOf(const Fault& fault, std::span<const void*> frames);

Place PlaceOf(const void* address);

/// The number of this process.
std::uint64_t ProcessNumber();

/// Writes a new file; `folder` is created first if it is missing. Both are UTF-8.
/// Returns true if all of it was written.
bool Store(const char* folder, const char* path, std::string_view bytes);

}  // namespace zek::crash
