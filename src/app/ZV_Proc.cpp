#include "app/ZV_Proc.h"

namespace zek {
namespace {

void TellSessionFile(ZV_Proc& proc) {
  const std::string fault = proc.sessionFile.TakeFault();
  if (!fault.empty()) proc.prompts.Show(Icon::Exclamation, fault);
}

}  // namespace

ZV_Proc::ZV_Proc(const Outside& world)
    : files(world.files),
      profile(world.profile),
      turn(world.turn),
      tags(world.tags),
      now(world.now),
      prompts(world.prompts),
      waits(world.turn, countdowns),
      sessionFile(files, texts, now),
      connection({{settings, profile, ToUser(), countdowns, waits, status, topics},
                  transfer,
                  log,
                  {world.socket, world.dde, world.tags}}),
      copies(files, settings, ToUser(), now),
      records(files, settings, now, world.runBy.user),
      marks(files, settings, texts, now, world.runBy),
      catalogues({settings, profile, Numbers(), ToUser(), copies, records, marks, tree, topics,
                  Exchange{connection, transfer, countdowns, waits, status}}) {
  log.Now = now;
}

ZV_Proc::~ZV_Proc() { sessionFile.End(); }

void ZV_Proc::Tick() {
  connection.Tick();
  sessionFile.Tick();
  if (status.Busy == 0) TellSessionFile(*this);
}

void ZV_Proc::EndSessionFile() {
  sessionFile.End();
  TellSessionFile(*this);
}

void SelectNode(ZV_Proc& proc, std::size_t index) {
  proc.selection = SelectionOf(proc.tree, proc.topics, index);
}

}  // namespace zek
