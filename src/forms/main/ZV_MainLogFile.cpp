#include <wx/filedlg.h>
#include <wx/filename.h>

#include "comm/LogText.h"
#include "forms/main/ZV_Main.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Lines.h"
#include "ui/WxText.h"

// Saving the log in a file, and opening a saved one.
namespace zek {

std::string ZV_Main::AskLogFile(bool save) {
  wxFileDialog dialog(this, Label(save ? text::kLogSaveTitle : text::kLogOpenTitle), {}, {},
                      Label(text::kLogFilter),
                      save ? wxFD_SAVE | wxFD_OVERWRITE_PROMPT : wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  const Working working(*this);
  while (dialog.ShowModal() == wxID_OK) {
    wxFileName file(dialog.GetPath());
    const bool complete = !save || file.HasExt();
    if (!complete) file.SetExt("txt");
    // The dialog asked about the name without the extension. It asks again if this one exists.
    if (complete || !file.FileExists()) return file.GetFullPath().utf8_string();
    dialog.SetPath(file.GetFullPath());
  }
  return {};
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
