#include "forms/main/Demo.h"

#include <algorithm>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

#include <wx/stdpaths.h>
#include <wx/utils.h>

#include "lang/TextNumbers.h"
#include "system/Paths.h"
#include "system/Process.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

#ifdef _WIN32
constexpr const char* kPlantProgram = "zekview-sim.exe";
#else
constexpr const char* kPlantProgram = "zekview-sim";
#endif

bool Exists(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(PathOf(path), error);
}

// A separator at the end would escape the quote around an argument.
std::string WithoutSeparator(std::string path) {
  while (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) path.pop_back();
  return path;
}

class DemoProcess final : public wxProcess {
 public:
  explicit DemoProcess(std::function<void()> failed) : failed_(std::move(failed)) {}

  void OnTerminate(int /*pid*/, int status) override {
    if (status != 0) failed_();
    delete this;  // as the toolkit does
  }

 private:
  std::function<void()> failed_;
};

}  // namespace

DemoFiles FindDemo() {
  const std::string directory = ExecutableDirectory();
  DemoFiles files{directory + kPlantProgram, directory + "demo", {}};
  const std::string ofBuild = directory + "../../data/demo";
  if (!Exists(files.folder) && Exists(ofBuild)) files.folder = ofBuild;
  for (const std::string& path : {files.program, files.folder}) {
    if (files.missing.empty() && !Exists(path)) files.missing = path;
  }
  return files;
}

long StartProgram(const std::vector<wxString>& words, int flags, wxProcess* process) {
  std::vector<const wchar_t*> arguments(words.size() + 1);  // the last one stays null
  std::transform(words.begin(), words.end(), arguments.begin(),
                 [](const wxString& word) -> const wchar_t* { return word.wc_str(); });
  return wxExecute(arguments.data(), flags, process);
}

bool StartDemo(ZV_Proc& proc, std::function<void()> failed) {
  const DemoFiles files = FindDemo();
  if (!files.missing.empty()) {
    proc.ToUser().Tell(Icon::Exclamation, text::kDemoMissing, {Windows1252FromUtf8(files.missing)});
    return false;
  }
  const std::vector<wxString> words{wxStandardPaths::Get().GetExecutablePath(),
                                    "--dir",
                                    wxString::FromUTF8(WithoutSeparator(proc.settings.ProgramPath)),
                                    "--ini",
                                    wxString::FromUTF8(WithoutSeparator(proc.settings.IniPath)),
                                    "--demo"};
  auto process = std::make_unique<DemoProcess>(std::move(failed));
  if (StartProgram(words, wxEXEC_ASYNC, process.get()) != 0) {
    static_cast<void>(process.release());  // deletes itself when the demonstration ends
    return true;
  }
  proc.ToUser().Tell(Icon::Exclamation, text::kDemoFailed);
  return false;
}

}  // namespace zek
