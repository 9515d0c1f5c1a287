#include "plant/PlantFolder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "plant/PlantCatalogueText.h"
#include "plant/PlantLine.h"
#include "system/Paths.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek::sim {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestCatalogue = std::size_t{1} << 20;
constexpr std::string_view kWeekdayEnd = ".WDC.TXT";
constexpr std::string_view kExceptionEnd = ".EXC.TXT";

std::string About(const fs::path& path, const std::string& what) {
  return Utf8Of(path) + ": " + what;
}

struct FileText {
  std::string bytes;
  std::string error;
};

FileText ReadText(const fs::path& path) {
  std::error_code ignored;
  std::ifstream file;
  if (fs::is_regular_file(path, ignored)) file.open(path, std::ios::binary);
  if (!file.is_open()) return {{}, About(path, "cannot be read")};
  std::string bytes(kLargestCatalogue + 1, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (file.bad()) return {{}, About(path, "cannot be read")};
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  if (bytes.size() > kLargestCatalogue) return {{}, About(path, "larger than 1 MiB")};
  return {std::move(bytes), {}};
}

// Returns "" or the error. A failed write leaves the old file unchanged.
std::string WriteText(const fs::path& path, const std::string& text) {
  fs::path beside = path;
  beside += ".new";
  std::ofstream file(beside, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  std::error_code error;
  if (!file) {
    fs::remove(beside, error);
    return About(path, "cannot be written");
  }
  fs::rename(beside, path, error);
  return error ? About(path, error.message()) : std::string();
}

std::string LoadOutstationFile(const fs::path& path, Outstation& outstation) {
  const FileText file = ReadText(path);
  if (!file.error.empty()) return file.error;
  const std::string error = ReadOutstationText(file.bytes, outstation);
  return error.empty() ? error : About(path, error);
}

std::string LoadCatalogue(const fs::path& path, PlantCatalogue& catalogue,
                          std::optional<std::string>& defaultValue) {
  const FileText file = ReadText(path);
  if (!file.error.empty()) return file.error;
  const std::string error = ReadPlantCatalogue(file.bytes, catalogue, defaultValue);
  return error.empty() ? error : About(path, error);
}

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() > end.size() && text.substr(text.size() - end.size()) == end;
}

TimeControl& ControlNamed(Outstation& outstation, std::string_view name) {
  TimeControl* const known = outstation.FindControl(name);
  if (known != nullptr) return *known;
  return outstation.controls.emplace_back(TimeControl{std::string(name), {}, {}, {}});
}

std::string LoadControlFile(const fs::path& path, const std::string& fileName, bool exceptions,
                            Outstation& outstation) {
  const std::string utf8 = fileName.substr(0, fileName.size() - kWeekdayEnd.size());
  const std::string name = Windows1252FromUtf8(utf8);
  if (!FitsWindows1252(utf8) || !IsPlainLine(name) ||
      name.find_first_of("!. ") != std::string::npos) {
    return About(path,
                 "not the name of a time control: it has a blank, \"!\", \".\" or a character "
                 "outside windows-1252");
  }
  TimeControl& control = ControlNamed(outstation, name);
  std::optional<std::string> defaultValue;
  std::string error =
      LoadCatalogue(path, exceptions ? control.exceptions : control.weekday, defaultValue);
  if (defaultValue && (!exceptions || !control.defaultValue)) control.defaultValue = defaultValue;
  return error;
}

// Loads one file of an outstation's folder; ignores files other than ".TXT".
std::string LoadFile(const fs::path& path, Outstation& outstation) {
  const std::string name = Utf8Of(path.filename());
  const bool zek1 = outstation.generation == Generation::Zek1;
  std::optional<std::string> unused;
  if (name == "OUTSTATION.TXT") return {};
  if (name == "SDC.TXT") return LoadCatalogue(path, outstation.calendar, unused);
  if (zek1 && name == "WDC.TXT") return LoadCatalogue(path, outstation.weekday, unused);
  if (zek1 && name == "OVC.TXT") return LoadCatalogue(path, outstation.exceptions, unused);
  const bool exceptions = EndsWith(name, kExceptionEnd);
  if (!zek1 && (exceptions || EndsWith(name, kWeekdayEnd))) {
    return LoadControlFile(path, name, exceptions, outstation);
  }
  if (!EndsWith(UpperCase(name), ".TXT")) return {};
  return About(path, zek1 ? "not SDC.TXT, WDC.TXT or OVC.TXT, which a ZEK1 has"
                          : "not SDC.TXT, NAME.WDC.TXT or NAME.EXC.TXT, which a ZEK2 has");
}

void SetMissingHeaders(Outstation& outstation) {
  const auto set = [](PlantCatalogue& catalogue, std::string_view header) {
    if (catalogue.header.empty()) catalogue.header = header;
  };
  set(outstation.calendar, "SPECIALDAGAR");
  set(outstation.weekday, "VECKODAGAR");
  set(outstation.exceptions, "UNDANTAG");
  for (TimeControl& control : outstation.controls) {
    set(control.weekday, "VECKODAGAR");
    set(control.exceptions, "UNDANTAG");
  }
}

struct Listing {
  std::vector<fs::path> paths;  // sorted, without hidden files
  std::string error;
};

Listing ListFolder(const fs::path& folder) {
  Listing listing;
  std::error_code error;
  fs::directory_iterator place(folder, error);
  while (!error && place != fs::directory_iterator()) {
    const fs::path& path = place->path();
    if (Utf8Of(path.filename()).front() != '.') listing.paths.push_back(path);
    place.increment(error);
  }
  if (error) listing.error = About(folder, error.message());
  std::sort(listing.paths.begin(), listing.paths.end());
  return listing;
}

std::string LoadOutstation(const fs::path& folder, Outstation& outstation) {
  outstation.name = Utf8Of(folder.filename());
  std::string error = LoadOutstationFile(folder / "OUTSTATION.TXT", outstation);
  if (!error.empty()) return error;
  const Listing files = ListFolder(folder);
  error = files.error;
  for (auto path = files.paths.begin(); error.empty() && path != files.paths.end(); ++path) {
    error = LoadFile(*path, outstation);
  }
  SetMissingHeaders(outstation);
  return error;
}

}  // namespace

LoadedPlant LoadPlant(const std::string& folder) {
  LoadedPlant loaded;
  const Listing folders = ListFolder(PathOf(folder));
  if (!folders.error.empty()) return {{}, folders.error};
  for (const fs::path& path : folders.paths) {
    std::error_code ignored;
    if (!fs::is_directory(path, ignored)) continue;
    Outstation outstation;
    const std::string error = LoadOutstation(path, outstation);
    if (!error.empty()) return {{}, error};
    if (loaded.plant.FindDus(outstation.dus) != nullptr) {
      return {{}, About(path, "another outstation has the same DUS number")};
    }
    loaded.plant.outstations.push_back(std::move(outstation));
  }
  if (loaded.plant.outstations.empty()) return {{}, folder + ": has no outstation"};
  return loaded;
}

std::string SavePlantOutstation(const std::string& folder, const Outstation& outstation) {
  const fs::path directory = PathOf(folder) / PathOf(outstation.name);
  std::string error;
  const auto save = [&](std::string_view name, const PlantCatalogue& catalogue,
                        const std::optional<std::string>& defaultValue) {
    if (!error.empty()) return;
    error = WriteText(directory / PathOf(Utf8FromWindows1252(name)),
                      BuildPlantCatalogue(catalogue, defaultValue));
  };
  save("SDC.TXT", outstation.calendar, {});
  if (outstation.generation == Generation::Zek1) {
    save("WDC.TXT", outstation.weekday, {});
    save("OVC.TXT", outstation.exceptions, {});
  }
  for (const TimeControl& control : outstation.controls) {
    save(control.name + std::string(kWeekdayEnd), control.weekday, control.defaultValue);
    save(control.name + std::string(kExceptionEnd), control.exceptions, control.defaultValue);
  }
  return error;
}

}  // namespace zek::sim
