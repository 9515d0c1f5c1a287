#include "app/ZV_Proc.h"

#include <algorithm>

#include "lang/Message.h"
#include "text/Fields.h"

namespace zek {

ZV_Proc::ZV_Proc(const Outside& world)
    : prompts(world.prompts),
      outside{world.files,  world.profile, world.turn, prompts,
              world.socket, world.dde,     world.tags, world.now},
      waits(world.turn, countdowns),
      connection({{settings, outside.profile, {texts, prompts}, countdowns, waits, status},
                  topics,
                  transfer,
                  log,
                  {outside.socket, outside.dde, outside.tags}}) {}

bool CheckSettingsFile(ZV_Proc& proc) {
  const FileContent file = proc.outside.files.Read(proc.settings.IniPath + "ZEKView.INI");
  if (!file.error || file.error->reason == FileError::Reason::Missing) return true;
  proc.outside.prompts.Show(Icon::Critical, FileMessage(proc.texts, *file.error));
  return false;
}

namespace {
// The name as it stands in the program directory, where files copied from elsewhere may be in
// capitals; "" when there is none.
std::string NameOnDisk(const ZV_Proc& proc, const std::string& name) {
  const std::vector<std::string> names = proc.outside.files.List(proc.settings.ProgramPath);
  const auto same = std::find_if(names.begin(), names.end(), [&name](const std::string& each) {
    return EqualNoCase(each, name);
  });
  return same == names.end() ? std::string() : *same;
}
}  // namespace

bool LoadLanguage(ZV_Proc& proc) {
  const std::string language = proc.outside.profile.ReadIni("General", "Language", "");
  if (language.empty()) return false;
  const std::string path = LocalPath(proc.settings.ProgramPath, "zek_lang." + language);
  FileContent file = proc.outside.files.Read(path);
  if (file.error && file.error->reason == FileError::Reason::Missing) {
    const std::string found = NameOnDisk(proc, "zek_lang." + language);
    if (!found.empty()) file = proc.outside.files.Read(proc.settings.ProgramPath + found);
  }
  if (!file.error) {
    proc.texts.Read(file.bytes);
    return true;
  }
  if (file.error->reason != FileError::Reason::Missing) {
    proc.outside.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *file.error));
  }
  return false;
}

void LoadTopics(ZV_Proc& proc) {
  const unsigned before = proc.prompts.Shown();
  proc.topics.LoadTopics(proc.outside.profile, proc.settings, proc.texts, proc.prompts);
  proc.batch.PlantCut = proc.prompts.Shown() != before;
}

void LoadTree(ZV_Proc& proc) {
  const unsigned before = proc.prompts.Shown();
  proc.tree = BuildObjectTree(proc.topics, proc.outside.profile, proc.texts, proc.prompts);
  if (proc.prompts.Shown() != before) proc.batch.PlantCut = true;
}

void SelectNode(ZV_Proc& proc, std::size_t index) {
  const TreeNode& node = proc.tree.at(index);
  proc.selection.CurrentObject = node.Object;
  proc.selection.TscName = node.TscName;
  proc.selection.PickListTable = node.PickListTable;
  proc.selection.LocalFiles = LocalFilesOf(proc.topics[node.Object], node);
}

}  // namespace zek
