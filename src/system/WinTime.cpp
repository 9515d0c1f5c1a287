#include <windows.h>

#include "system/LocalTime.h"

namespace zek {

// Not std::localtime: its seconds end in 2038 in a program of 32 bits.
LocalTime SystemTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

}  // namespace zek
