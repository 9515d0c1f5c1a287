#include <algorithm>
#include <array>

#include "Targets.h"

namespace zek::fuzz {
namespace {

constexpr auto kTargets = std::to_array<Target>({
    {"settings", Settings},
    {"language", Language},
    {"topics", Topics},
    {"objects", Objects},
    {"command-line", CommandLines},
    {"reply-plain", ReplyPlain},
    {"reply-pieces", ReplyPieces},
    {"weekday", Weekday},
    {"calendar", Calendar},
    {"exceptions", Exceptions},
    {"local-copies", LocalCopies},
    {"plant-files", PlantFiles},
});

}  // namespace

std::span<const Target> Targets() { return kTargets; }

const Target* FindTarget(std::string_view name) {
  const auto found = std::find_if(kTargets.begin(), kTargets.end(),
                                  [name](const Target& each) { return each.name == name; });
  return found == kTargets.end() ? nullptr : &*found;
}

}  // namespace zek::fuzz
