#pragma once

#include <string>
#include <string_view>

namespace zek {

/// Where a file is written until it takes the place of `target`: beside it, "NAME.zvtmp" and the
/// number of the process, and behind that "-2" and so on (`attempt`) while such a name is taken.
/// A long name is cut, so that a file fits wherever its target does. Paths are UTF-8.
std::string BesideName(const std::string& target, unsigned long process, int attempt);

/// The name (without directory) of such a file. It is never a catalogue, settings or export.
bool IsBesideName(std::string_view name);

/// The process that such a name tells of.
unsigned long BesideProcess(std::string_view name);

/// A name taken by others that often is not tried for again.
inline constexpr int kMostBesideNames = 100;

}  // namespace zek
