#include "desktop/DemoPlant.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include <wx/stopwatch.h>
#include <wx/stream.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

#include "comm/TopicTable.h"
#include "forms/main/Demo.h"
#include "settings/DataFolder.h"
#include "settings/FileProfile.h"
#include "system/DiskFiles.h"
#include "system/Paths.h"

namespace zek {
namespace {

namespace fs = std::filesystem;

constexpr long kPatience = 20000;  // milliseconds until the plant must have told its port
constexpr unsigned long kPause = 20;
constexpr const char* kDemoPort = ":5100";  // in the settings of the demonstration

}  // namespace

DemoPlant::~DemoPlant() {
  if (process_ != nullptr) process_->Detach();
#ifdef _WIN32
  if (pid_ != 0) wxProcess::Kill(static_cast<int>(pid_), wxSIGKILL);
#else
  if (pid_ != 0) wxProcess::Kill(static_cast<int>(pid_), wxSIGTERM);
#endif
  std::error_code error;
  if (!folder_.empty()) fs::remove_all(PathOf(folder_), error);
}

std::string DemoPlant::Start(const std::array<std::string, 2>& folders,
                             const std::string& iniPath) {
  const DemoFiles files = FindDemo();
  if (!files.missing.empty()) return "There is no " + files.missing;
  if (std::string fault = Prepare(folders, files.folder); !fault.empty()) return fault;
  if (std::string fault = StartPlant(files.program); !fault.empty()) return fault;
  const std::string port = ReadPort();
  if (port.empty()) return "The simulated plant did not start";
  return WriteSettings(port, iniPath);
}

// Only the plant and the files of the languages: nothing of the user's.
std::string DemoPlant::Prepare(const std::array<std::string, 2>& folders,
                               const std::string& demoFolder) {
  std::error_code error;
  const fs::path folder =
      fs::temp_directory_path(error) / ("zekview-demo-" + std::to_string(wxGetProcessId()));
  if (!error) fs::remove_all(folder, error);
  if (!error) fs::copy(PathOf(demoFolder), folder, fs::copy_options::recursive, error);
  if (error) return error.message();
  folder_ = WithSeparator(Utf8Of(folder));
  for (const std::string& from : folders) {
    if (from.empty() || error) continue;
    for (const fs::directory_entry& file : fs::directory_iterator(PathOf(from), error)) {
      const std::string name = Utf8Of(file.path().filename());
      const bool wanted = name.starts_with("zek_lang.") || name.starts_with("zek_help.");
      if (wanted && !error) {
        fs::copy_file(file.path(), folder / file.path().filename(),
                      fs::copy_options::overwrite_existing, error);
      }
    }
  }
  return error ? error.message() : "";
}

std::string DemoPlant::StartPlant(const std::string& program) {
  const std::vector<wxString> words{wxString::FromUTF8(program),           "--port", "0", "--plant",
                                    wxString::FromUTF8(folder_ + "plant"), "--keep"};
  process_ = new wxProcess(wxPROCESS_REDIRECT);
  pid_ = StartProgram(words, wxEXEC_ASYNC | wxEXEC_HIDE_CONSOLE, process_);
  return pid_ == 0 ? "The simulated plant can't be started: " + program : "";
}

// The plant prints the number of its port and a line end.
std::string DemoPlant::ReadPort() const {
  const wxStopWatch watch;
  std::string port;
  while (watch.Time() < kPatience) {
    if (!process_->IsInputAvailable()) {
      wxMilliSleep(kPause);
      continue;
    }
    const int character = process_->GetInputStream()->GetC();
    if (character == '\n') return port;
    if (character >= '0' && character <= '9') port += static_cast<char>(character);
  }
  return {};
}

std::string DemoPlant::WriteSettings(const std::string& port, const std::string& iniPath) {
  DiskFiles files;
  const std::string path = folder_ + kSettingsFile;
  FileContent settings = files.Read(path);
  if (settings.error) return path + ": " + settings.error->systemMessage;
  for (std::size_t at = 0; (at = settings.bytes.find(kDemoPort, at)) != std::string::npos; ++at)
    settings.bytes.replace(at + 1, std::string_view(kDemoPort).size() - 1, port);
  if (const auto error = files.Write(path, settings.bytes)) return error->systemMessage;
  FileProfile demo(files, path);
  const std::string language =
      FileProfile(files, iniPath + kSettingsFile).ReadIni("General", "Language", "046");
  if (const auto error = demo.WriteIni("General", "Language", language)) {
    return error->systemMessage;
  }
  for (const std::string& entry : demo.ReadSection("Topics", kTopicsBuffer).entries) {
    const auto topic = ParseTopic(entry, false);
    if (topic && topic_.empty()) topic_ = topic->TopicName;
  }
  return {};
}

int DemoTitles::FilterEvent(wxEvent& event) {
  if (event.GetEventType() != wxEVT_SHOW) return Event_Skip;
  auto* const window = dynamic_cast<wxTopLevelWindow*>(event.GetEventObject());
  if (window != nullptr && !window->GetTitle().Contains("DEMO"))
    window->SetTitle("DEMO - " + window->GetTitle());
  return Event_Skip;
}

}  // namespace zek
