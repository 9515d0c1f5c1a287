#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "lang/LanguageTexts.h"

namespace zek {

/// Why a typed text was not entered.
struct Refusal {
  std::int32_t text = 0;  // what is wrong; %1 is what was typed
  std::int32_t hint = 0;  // how to write it
  std::string typed;
  /// What the box shows now, to be entered when it is left again; "" if the typed text stays.
  std::string instead;

  /// The message in two lines; `lineEnd` separates them.
  std::string MessageIn(const LanguageTexts& texts, const char* lineEnd) const;

  bool operator==(const Refusal&) const = default;
};

/// When a row switches, in minutes.
struct SwitchTimes {
  std::int64_t start = 0;
  std::optional<std::int64_t> stop;

  bool StopsFirst() const { return stop && *stop < start; }
};

/// What is doubtful about a row among the others that apply at the same time: `text::kRowTwice`,
/// `text::kRowsOverlap` or 0.
std::int32_t DoubtOf(const SwitchTimes& row, std::span<const SwitchTimes> others);

}  // namespace zek
