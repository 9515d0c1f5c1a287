#include "app/ZV_Proc.h"

namespace zek {

ZV_Proc::ZV_Proc(const Outside& world)
    : files(world.files),
      profile(world.profile),
      turn(world.turn),
      tags(world.tags),
      now(world.now),
      prompts(world.prompts),
      waits(world.turn, countdowns),
      connection({{settings, profile, ToUser(), countdowns, waits, status},
                  topics,
                  transfer,
                  log,
                  {world.socket, world.dde, world.tags}}),
      copies(files, settings, ToUser(), now),
      records(files, settings, now, world.user),
      catalogues({settings, profile, Numbers(), ToUser(), copies, records,
                  Exchange{connection, transfer, countdowns, waits, status}}) {}

void SelectNode(ZV_Proc& proc, std::size_t index) {
  proc.selection = SelectionOf(proc.tree, proc.topics, index);
}

}  // namespace zek
