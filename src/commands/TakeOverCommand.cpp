#include "commands/Commands.h"

namespace zek::cli {

ExitStatus TakeOverFolder(Files& files, const Folders& folders, const Arguments& arguments,
                          const Streams& streams) {
  const auto fail = [&streams](const FileError& error) {
    const bool large = error.reason == FileError::Reason::TooLarge;
    streams.err << "zekview-cli: " << error.path << ": "
                << (large ? "larger than 64 MiB" : error.systemMessage) << '\n';
    return kFailed;
  };
  if (files.Exists(folders.data + kSettingsFile)) {
    streams.err << "zekview-cli: " << folders.data << " has settings already\n";
    return kWrongUsage;
  }
  if (arguments.operands.empty() && !folders.Installed()) {
    streams.err << "zekview-cli: FOLDER is missing: this program was not installed\n";
    return kWrongUsage;
  }
  if (arguments.operands.empty()) {
    const auto error = BeginAfresh(files, folders);
    return error ? fail(*error) : kDone;
  }
  const TakenOver done = TakeOver(files, arguments.operands[0], folders);
  if (done.error) return fail(*done.error);
  streams.out << done.copied << " files copied, " << done.kept << " kept as they were\n";
  return kDone;
}

}  // namespace zek::cli
