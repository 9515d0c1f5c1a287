#include "editors/Entry.h"

#include <algorithm>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

bool Overlap(const SwitchTimes& one, const SwitchTimes& other) {
  return one.stop && other.stop &&
         std::max(one.start, other.start) < std::min(*one.stop, *other.stop);
}

}  // namespace

std::string Refusal::MessageIn(const LanguageTexts& texts, const char* lineEnd) const {
  return Message(texts.Text(text), {typed}) + lineEnd + texts.Text(hint);
}

std::int32_t DoubtOf(const SwitchTimes& row, std::span<const SwitchTimes> others) {
  const auto is = [&](auto condition) {
    return std::any_of(others.begin(), others.end(), condition);
  };
  if (is([&](const SwitchTimes& other) {
        return row.start == other.start && row.stop == other.stop;
      }))
    return text::kRowTwice;
  if (is([&](const SwitchTimes& other) { return Overlap(row, other); })) return text::kRowsOverlap;
  return 0;
}

}  // namespace zek
