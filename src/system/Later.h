#pragma once

#include <functional>

namespace zek {

/// Posts a call to the program's event loop and returns at once; the calls run in their order.
using Later = std::function<void(std::function<void()> call)>;

}  // namespace zek
