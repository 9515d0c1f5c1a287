#pragma once

#include <string>

namespace zek::test {

/// The project's folder. Only one generated file names it, so that all others compile the same in
/// every clone and the compiler's cache serves them all.
std::string SourceTree();

}  // namespace zek::test
