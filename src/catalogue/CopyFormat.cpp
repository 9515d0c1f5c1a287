#include "catalogue/CopyFormat.h"

#include <algorithm>
#include <array>

#include "comm/Transfer.h"
#include "text/Fields.h"
#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr std::string_view kNotInFileNames = "\\/:*?\"<>|";
constexpr auto kDevices =
    std::to_array<std::string_view>({"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$", "CLOCK$"});
constexpr std::string_view kDeviceDigits = "0123456789\xB9\xB2\xB3";  // including superscripts

bool FitsFileName(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code >= 32 && code != 127 && kNotInFileNames.find(character) == std::string_view::npos;
}

// Windows treats these names as devices in any folder and with any extension.
bool IsDeviceName(std::string_view name) {
  const std::string stem = UpperCase(Trim(GetField(name, 0, ".")));
  if (std::find(kDevices.begin(), kDevices.end(), stem) != kDevices.end()) return true;
  return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) &&
         kDeviceDigits.find(stem.back()) != std::string_view::npos;
}

std::string FileName(std::string_view text) {
  std::string name(text);
  std::replace_if(
      name.begin(), name.end(), [](char character) { return !FitsFileName(character); }, '_');
  // Windows drops dots and blanks at the end, which would change the name of the file.
  for (std::size_t end = name.size(); end > 0 && (name[end - 1] == '.' || name[end - 1] == ' ');) {
    name[--end] = '_';
  }
  if (IsDeviceName(name)) name.insert(0, "_");
  return name;
}

std::string BaseName(const Topic& topic) {
  std::string base = topic.Address + " " + topic.Description;
  base.erase(0, std::min(base.find_first_not_of(' '), base.size()));
  std::replace(base.begin(), base.end(), ':', '_');
  std::replace(base.begin(), base.end(), '.', '_');
  if (!base.empty() && base.front() >= '0' && base.front() <= '9') base.insert(0, "f");
  return base;
}

}  // namespace

const std::string& LocalFileNames::operator[](Catalogue catalogue) const {
  if (catalogue == Catalogue::Sdc) return SDC;
  return catalogue == Catalogue::Wdc ? WDC : OVC;
}

LocalFileNames LocalFilesOf(const Topic& topic, const TreeNode& node) {
  const std::string base = BaseName(topic);
  const bool ownCatalogues = topic.TopicType == Generation::Zek2;
  const auto name = [&](Catalogue catalogue) {
    const CatalogueKind& kind = KindOf(catalogue);
    const bool own = kind.ofControl && ownCatalogues;
    if (own && !node.IsTimeControl()) return std::string();
    const std::string rest = own ? node.TscName + std::string(kind.file) : std::string(kind.name);
    return FileName(base + " " + rest + ".TXT");
  };
  return {name(Catalogue::Sdc), name(Catalogue::Wdc), name(Catalogue::Ovc)};
}

std::string LocalPath(const std::string& programPath, std::string_view name) {
  return programPath + Utf8FromWindows1252(FileName(name));
}

LocalCopy ReadLocalCopy(std::string_view file) {
  LocalCopy copy;
  while (!file.empty()) {
    const std::string_view line = TakeLine(file);
    if (Trim(line).empty()) continue;  // no controller has such a line
    if (line.find(".DFV") != std::string_view::npos) {
      if (line.find('=') != std::string_view::npos) copy.dfv = DfvValue(line);
    } else if (copy.lines.size() == kMaxCatalogueLines) {
      copy.tooLong = true;
      break;
    } else {
      copy.lines.emplace_back(line);
    }
  }
  return copy;
}

std::string BuildLocalCopy(const std::vector<std::string>& lines,
                           const std::optional<std::string>& dfv) {
  std::string file;
  if (dfv) file.append(".DFV = ").append(*dfv).append("\r\n");
  for (const std::string& line : lines) file.append(line).append("\r\n");
  return file;
}

}  // namespace zek
