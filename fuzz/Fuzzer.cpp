#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "Targets.h"

namespace {

// libFuzzer starts itself again for some work, so the target is passed in the environment.
const zek::fuzz::Target& ChosenTarget() {
  const char* const name = std::getenv("ZEKVIEW_FUZZ_TARGET");
  for (const auto& each : zek::fuzz::Targets())
    if (name != nullptr && each.name == name) return each;
  std::cerr << "ZEKVIEW_FUZZ_TARGET names none of:";
  for (const auto& each : zek::fuzz::Targets()) std::cerr << ' ' << each.name;
  std::cerr << '\n';
  std::exit(2);
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const zek::fuzz::Target& target = ChosenTarget();
  target.run({reinterpret_cast<const char*>(data), size});  // NOLINT(*-reinterpret-cast)
  return 0;
}
