#include "comm/LogText.h"
#include "forms/main/ZV_Main.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Lines.h"
#include "ui/FileBox.h"
#include "ui/WxText.h"

// Saving the log in a file, and opening a saved one.
namespace zek {

std::string ZV_Main::AskLogFile(bool save) {
  const Working working(*this);
  const wxString filter = Label(text::kLogFilter);
  return save ? AskFileToWrite(this, Label(text::kLogSaveTitle), {}, filter, "txt")
              : AskFileToRead(this, Label(text::kLogOpenTitle), filter);
}

void ZV_Main::SaveLog() {
  const std::string path = AskFile(true);
  if (path.empty()) return;
  const ReplyLog& log = proc_.log;
  const std::string bytes = LogText(log, log.First(), log.End(), List_Output->ShowsTimes());
  if (const auto error = proc_.files.Write(path, bytes)) {
    proc_.prompts.Show(Icon::Exclamation, FileMessage(proc_.texts, *error));
  }
}

void ZV_Main::OpenLog() {
  const std::string path = AskFile(false);
  if (path.empty()) return;
  const FileContent file = proc_.files.Read(path);
  if (file.error) {
    proc_.prompts.Show(Icon::Exclamation, FileMessage(proc_.texts, *file.error));
    return;
  }
  std::vector<std::string> lines;
  for (std::string_view rest = file.bytes; !rest.empty();) lines.emplace_back(TakeLine(rest));
  proc_.log.Replace(std::move(lines));
  ShowState();
}

}  // namespace zek
