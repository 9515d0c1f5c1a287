#pragma once

namespace zek::test {

/// The class under which the tag object of the tests is registered as CTAPIX.CTAPI.
inline constexpr const char* kTagDoubleId = "{5E1B8C5D-2C39-4B53-9A53-1C0A6B1E7A11}";

}  // namespace zek::test
