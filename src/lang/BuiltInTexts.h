#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zek {

/// The texts that the program brings along in Swedish (windows-1252), numbers 500 and up.
std::optional<std::string_view> BuiltInText(std::int32_t number);

}  // namespace zek
