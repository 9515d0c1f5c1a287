#pragma once

#include <string>
#include <string_view>

namespace zek {

/// Returns the path of the temporary file that later replaces `target`: in the same directory,
/// "NAME.zvtmp", the process number and, from the second `attempt` on, "-2" and so on. Long names
/// are cut, so that the temporary name is valid wherever the target's is. Paths are UTF-8.
std::string BesideName(const std::string& target, unsigned long process, int attempt);

/// True if `name` (without directory) is such a temporary name. Other files are never named so.
bool IsBesideName(std::string_view name);

/// Returns the process number in such a name.
unsigned long BesideProcess(std::string_view name);

/// Give up after this many attempts to find a free name.
inline constexpr int kMostBesideNames = 100;

}  // namespace zek
