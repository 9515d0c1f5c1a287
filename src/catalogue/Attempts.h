#pragma once

#include <cstdint>
#include <string>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {

/// A fetch and a write are each tried so often.
inline constexpr int kAttempts = 3;

/// Text `number`, and from the second attempt on which one it is: "Hämtar (försök 2 av 3)".
inline std::string AttemptText(const Messages& messages, std::int32_t number, int attempt) {
  if (attempt == 1) return messages.Text(number);
  return messages.Text(number) + " (" + messages.Text(text::kAttempt, {std::to_string(attempt)}) +
         ")";
}

}  // namespace zek
