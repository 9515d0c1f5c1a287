#pragma once

#include <cstdint>

/// The numbers of the language texts, by name.
namespace zek::text {

#define ZEK_TEXT(name, number) inline constexpr std::int32_t name = (number);
#define ZEK_BUILT_IN(name, number, swedish) ZEK_TEXT(name, number)
#include "lang/Texts.def"
#undef ZEK_TEXT
#undef ZEK_BUILT_IN

}  // namespace zek::text
