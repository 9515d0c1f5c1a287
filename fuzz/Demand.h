#pragma once

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace zek::fuzz {

/// Ends the program if the condition is false, so that the fuzzer keeps the input.
inline void Demand(bool kept, std::string_view promise) {
  if (kept) return;
  std::cerr << "broken promise: " << promise << '\n';
  std::abort();
}

}  // namespace zek::fuzz
