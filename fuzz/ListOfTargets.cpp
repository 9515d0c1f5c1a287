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
    {"import", Import},
    {"change-lists", ChangeLists},
    {"plans", PlanFiles},
});

}  // namespace

std::span<const Target> Targets() { return kTargets; }

}  // namespace zek::fuzz
