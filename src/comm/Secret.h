#pragma once

#include <string>
#include <string_view>

namespace zek {

/// `text` with "***" wherever `secret` stands in it, in any case; an empty secret hides nothing.
std::string WithoutSecret(std::string_view text, std::string_view secret);

}  // namespace zek
