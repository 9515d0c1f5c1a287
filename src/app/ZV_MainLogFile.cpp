#include <wx/filedlg.h>

#include "app/ZV_Main.h"
#include "lang/Message.h"
#include "lang/TextNumbers.h"
#include "text/Lines.h"
#include "ui/WxText.h"

/// Saving the log in a file, and showing a saved one.
namespace zek {
namespace {

// The chosen file's path in UTF-8; "" when the dialog was cancelled.
std::string AskFile(wxWindow* parent, const wxString& title, const wxString& filter, long style) {
  wxFileDialog dialog(parent, title, {}, {}, filter, style);
  return dialog.ShowModal() == wxID_OK ? std::string(dialog.GetPath().utf8_str()) : std::string();
}

}  // namespace

void ZV_Main::SaveLog() {
  const std::string path = AskFile(this, Label(text::kLogSaveTitle), Label(text::kLogFilter),
                                   wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
  if (path.empty()) return;
  std::string bytes;
  for (const std::string& line : proc_.log.Lines()) bytes += line + "\r\n";
  if (const auto error = proc_.outside.files.Write(path, bytes)) {
    proc_.outside.prompts.Show(Icon::Exclamation, FileMessage(proc_.texts, *error));
  }
}

void ZV_Main::OpenLog() {
  const std::string path = AskFile(this, Label(text::kLogOpenTitle), Label(text::kLogFilter),
                                   wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (path.empty()) return;
  const FileContent file = proc_.outside.files.Read(path);
  if (file.error) {
    proc_.outside.prompts.Show(Icon::Exclamation, FileMessage(proc_.texts, *file.error));
    return;
  }
  std::vector<std::string> lines;
  for (std::string_view rest = file.bytes; !rest.empty();) lines.emplace_back(TakeLine(rest));
  proc_.log.Replace(std::move(lines));
  ShowState();
}

}  // namespace zek
