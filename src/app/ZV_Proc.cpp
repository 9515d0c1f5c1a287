#include "app/ZV_Proc.h"

#include "lang/Message.h"

namespace zek {

ZV_Proc::ZV_Proc(const Outside& world)
    : outside(world),
      waits(world.turn, countdowns),
      connection(ConnectionParts{settings, texts, outside.profile, outside.prompts, topics,
                                 countdowns, waits, transfer, log, status, outside.socket,
                                 outside.dde, outside.tags}) {}

bool LoadLanguage(ZV_Proc& proc) {
  const std::string language = proc.outside.profile.ReadIni("General", "Language", "");
  if (language.empty()) return false;
  const std::string path = LocalPath(proc.settings.ProgramPath, "zek_lang." + language);
  const FileContent file = proc.outside.files.Read(path);
  if (!file.error) {
    proc.texts.Read(file.bytes);
    return true;
  }
  if (file.error->reason != FileError::Reason::Missing) {
    proc.outside.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *file.error));
  }
  return false;
}

void SelectNode(ZV_Proc& proc, std::size_t index) {
  const TreeNode& node = proc.tree.at(index);
  proc.selection.CurrentObject = node.Object;
  proc.selection.TscName = node.TscName;
  proc.selection.PickListTable = node.PickListTable;
  proc.selection.LocalFiles = LocalFilesOf(proc.topics[node.Object], node);
}

}  // namespace zek
