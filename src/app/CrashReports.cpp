#include "app/CrashReports.h"

#include <algorithm>

#include "lang/TextNumbers.h"
#include "system/CrashReport.h"
#include "system/Paths.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr std::size_t kMostReports = 10;
constexpr const char* kToldFile = "told";  // lists the reports that were told

}  // namespace

void TellCrashes(ZV_Proc& proc) {
  const std::string folder = WithSeparator(proc.settings.ProgramPath + kCrashFolder);
  std::vector<std::string> reports = proc.files.List(folder);  // the oldest first
  std::erase_if(reports, [](const std::string& name) { return !name.ends_with(".txt"); });
  for (; reports.size() > kMostReports; reports.erase(reports.begin())) {
    proc.files.Remove(folder + reports.front());
  }
  std::string names;
  for (const std::string& name : reports) names += name + "\r\n";
  const std::string before = proc.files.Read(folder + kToldFile).bytes;
  if (names == before) return;
  const auto isNew = [&before](const std::string& name) {
    return before.find(name) == std::string::npos;
  };
  const auto newest = std::find_if(reports.rbegin(), reports.rend(), isNew);
  // Perhaps nobody reads what an unattended run reports.
  if (proc.prompts.Attended()) proc.files.Write(folder + kToldFile, names);
  if (newest == reports.rend()) return;
  const std::string message =
      proc.ToUser().Text(text::kCrashed, {Windows1252FromUtf8(folder + *newest)});
  proc.log.Add(message);
  if (!proc.settings.BatchMode) proc.prompts.Show(Icon::Exclamation, message);
}

}  // namespace zek
