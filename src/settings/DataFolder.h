#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "system/Files.h"

namespace zek {

inline constexpr const char* kSettingsFile = "ZEKView.INI";

/// The file that only the installer writes beside the programs. Its section [ZekView] has
/// `Folder`, the data folder, and `Language`, such as 044, if one was chosen.
inline constexpr const char* kMarkerFile = "datadir.ini";

/// Where a program's files are. The folders are UTF-8 and end in the system's separator.
struct Folders {
  std::string data;                       // what is written; the program directory of the session
  std::string shipped;                    // of an installed program: what came with it, else ""
  std::string language;                   // chosen at the installation: three digits, or ""
  bool chosen = false;                    // `data` is from --dir
  std::optional<FileError> unknown = {};  // why the data folder is not known: nothing may be used

  bool Installed() const { return !shipped.empty(); }
};

/// Finds the folders of a program that is in `beside`. Without a marker, or if it names no folder,
/// data is kept beside the program. --dir (`dir`) replaces the data folder. If the marker can't be
/// read, only --dir gives one.
Folders FoldersOf(const Files& files, const std::string& beside,
                  const std::optional<std::string>& dir);

/// True if an installed program has no settings in its data folder yet.
bool IsNew(const Files& files, const Folders& folders);

/// Returns why the data folder can't be used, in English and UTF-8, or "".
std::string WhyUnusable(const Folders& folders);

/// Returns what to tell of a data folder that `IsNew` when nobody is there to be asked.
std::string WhyNew(const Folders& folders);

/// Gives a new data folder the settings that came with the program, in the chosen language. Does
/// nothing if another program gave it some meanwhile.
std::optional<FileError> BeginAfresh(Files& files, const Folders& folders);

/// What was taken over from an older folder.
struct TakenOver {
  std::size_t copied = 0;  // files; those that were there with the same content count
  std::size_t kept = 0;    // files that were there with another content, and stay
  std::optional<FileError> error;
};

/// Copies settings, local copies, history, records, plans and languages of one's own from an older
/// folder (UTF-8) and changes nothing there. Replaces no file. The settings come last: until all is
/// copied, the data folder stays new.
TakenOver TakeOver(Files& files, const std::string& older, const Folders& folders);

/// Returns why no file can be stored in the folder, with the folder's path, or nothing.
std::optional<FileError> WriteProblem(Files& files, const std::string& folder);

}  // namespace zek
