#include <algorithm>

#include "commands/Commands.h"
#include "settings/TagPassword.h"
#include "system/Secret.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

constexpr std::size_t kLongest = 127;  // characters, as of every setting

// Returns what is wrong with a password, or "".
std::string Fault(const std::string& utf8) {
  if (utf8.empty()) return "no password was given";
  const auto isControl = [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; };
  if (std::any_of(utf8.begin(), utf8.end(), isControl)) return "it holds a control character";
  if (!IsUtf8(utf8) || !FitsWindows1252(utf8)) return "it holds a character that is not allowed";
  return Windows1252FromUtf8(utf8).size() > kLongest ? "it has more than 127 characters" : "";
}

}  // namespace

ExitStatus SetTagPassword(Files& files, const std::string& settingsFile, std::istream& in,
                          const Streams& streams) {
  const auto end = [&streams](const std::string& why, ExitStatus status) {
    streams.err << "zekview-cli: " << why << "; nothing was changed\n";
    return status;
  };
  if (!CanEncrypt()) return end("only Windows can encrypt a password", kWrongUsage);
  if (!files.Exists(settingsFile)) return end("there is no " + settingsFile, kWrongUsage);
  std::string typed = ReadUnseenLine(in, "Password of the tag server: ");
  typed.resize(typed.find_last_not_of("\r\n") + 1);
  if (const std::string fault = Fault(typed); !fault.empty()) return end(fault, kWrongUsage);
  const std::string password = Windows1252FromUtf8(typed);
  const std::unique_ptr<Profile> profile = OpenSettingsFile(files, settingsFile);
  if (const auto error = WriteTagPassword(*profile, password)) {
    return end(error->path + ": " + error->systemMessage, kFailed);
  }
  if (ReadTagPassword(*profile).text != password) {
    streams.err << "zekview-cli: " << settingsFile << " does not hold the password now\n";
    return kFailed;
  }
  streams.out << "Password in [General] of " << settingsFile
              << " is encrypted now; only this computer can read it\n";
  return kDone;
}

}  // namespace zek::cli
