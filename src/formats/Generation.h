#pragma once

namespace zek {

/// The two generations of controllers; the values are the types in the settings file.
enum class Generation { Zek1 = 1, Zek2 = 2 };

}  // namespace zek
