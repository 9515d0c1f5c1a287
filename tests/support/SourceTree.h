#pragma once

#include <string>

namespace zek::test {

/// The project's folder. Only one generated file contains it, so that all other files compile the
/// same in every clone and the compiler cache works for all of them.
std::string SourceTree();

}  // namespace zek::test
