#pragma once

#include <array>
#include <benchmark/benchmark.h>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

namespace zek::bench {

namespace detail {
template <class Number>
void ParseAt(const char* text, std::size_t column, const char* end) {
  const char* at = text + column - 1;
  while (at < end && *at == ' ') ++at;
  Number number{};
  std::from_chars(at, end, number);
  benchmark::DoNotOptimize(number);
}
}  // namespace detail

/// The minimal work of reading and building a catalogue: parse every number of the text at its
/// fixed columns (counted from 1), without searching, and copy the text once.
template <std::size_t Whole, std::size_t Fractional>
void ParseAndCopy(benchmark::State& state, const std::vector<std::string>& lines,
                  const std::array<std::size_t, Whole>& wholeNumbers,
                  const std::array<std::size_t, Fractional>& values) {
  std::string text;
  std::vector<std::size_t> starts;
  for (const std::string& line : lines) {
    starts.push_back(text.size());
    text += line + "\r\n";
  }
  std::string copy(text.size(), ' ');
  for (auto _ : state) {
    const char* const end = text.data() + text.size();
    for (const std::size_t start : starts) {
      const char* const line = text.data() + start;
      for (const std::size_t column : wholeNumbers) detail::ParseAt<int>(line, column, end);
      for (const std::size_t column : values) detail::ParseAt<float>(line, column, end);
    }
    std::memcpy(copy.data(), text.data(), text.size());
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
  }
}

}  // namespace zek::bench
