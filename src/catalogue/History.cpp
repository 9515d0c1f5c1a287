#include "catalogue/History.h"

#include <algorithm>
#include <utility>

#include "catalogue/CopyFormat.h"
#include "settings/Settings.h"
#include "system/Paths.h"
#include "text/Checksum.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr std::string_view kEnding = ".TXT";
constexpr std::string_view kStampShape = "dddddddd-dddddd";  // "d" is any digit

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// "YYYYMMDD-HHNNSS", optionally followed by "-" and a number.
bool IsId(std::string_view id) {
  if (id.size() < kStampShape.size()) return false;
  for (std::size_t i = 0; i < kStampShape.size(); ++i) {
    if (kStampShape[i] == 'd' ? !IsDigit(id[i]) : id[i] != kStampShape[i]) return false;
  }
  id.remove_prefix(kStampShape.size());
  constexpr std::size_t longest = 5;  // "-9999"
  return id.empty() || (id.size() > 1 && id.size() <= longest && id.front() == '-' &&
                        std::all_of(id.begin() + 1, id.end(), IsDigit));
}

int SerialOf(std::string_view id) {
  id.remove_prefix(kStampShape.size());
  return id.empty() ? 1 : static_cast<int>(Val(id.substr(1)));
}

// Orders older copies first.
bool IsOlder(const KeptCopy& one, const KeptCopy& other) {
  const auto key = [](const KeptCopy& copy) {
    return std::pair(copy.id.substr(0, kStampShape.size()), SerialOf(copy.id));
  };
  return key(one) < key(other);
}

std::string StampOf(const LocalTime& t) {
  return ZeroPadded(t.year, 4) + ZeroPadded(t.month, 2) + ZeroPadded(t.day, 2) + "-" +
         ZeroPadded(t.hour, 2) + ZeroPadded(t.minute, 2) + ZeroPadded(t.second, 2);
}

std::string TimeOf(std::string_view id) {
  std::string time(id.substr(0, kStampShape.size()));
  time[time.find('-')] = ' ';
  constexpr std::pair<std::size_t, const char*> marks[] = {
      {13, ":"}, {11, ":"}, {6, "-"}, {4, "-"}};  // last first, so that the positions stay valid
  for (const auto& [place, mark] : marks) time.insert(place, mark);
  if (SerialOf(id) > 1) time += " (" + std::to_string(SerialOf(id)) + ")";
  return time;
}

std::vector<std::string> LinesOf(std::string_view file) {
  LocalCopy copy = ReadLocalCopy(file);
  if (copy.dfv) copy.lines.insert(copy.lines.begin(), ".DFV = " + *copy.dfv);
  return std::move(copy.lines);
}

// Returns the local copy's name without ".TXT". A long name is cut to leave room for the time; a
// checksum of the whole name distinguishes names that begin alike.
std::string StemOf(std::string_view name) {
  constexpr std::size_t longest = 100;  // characters, at most two bytes each in a path
  if (name.ends_with(kEnding)) name.remove_suffix(kEnding.size());
  if (name.size() <= longest) return std::string(name);
  return std::string(name.substr(0, longest)) + "~" + Checksum::Of(name);
}

}  // namespace

History::History(Files& files, const std::string& programPath, std::string_view name, int count)
    : files_(files),
      folder_(WithSeparator(programPath + "History")),
      stem_(LocalPath({}, StemOf(name))),
      local_(LocalPath(programPath, name)),
      count_(count) {}

std::vector<KeptCopy> History::Kept() const {
  std::vector<KeptCopy> kept;
  const std::string start = stem_ + " ";
  for (const std::string& name : files_.List(folder_)) {
    if (!name.starts_with(start) || !name.ends_with(kEnding)) continue;
    std::string id = name.substr(start.size());
    id.resize(id.size() - std::min(id.size(), kEnding.size()));
    if (IsId(id)) kept.push_back({id, TimeOf(id), folder_ + name});
  }
  std::sort(kept.rbegin(), kept.rend(), IsOlder);
  return kept;
}

std::string History::NewId(const LocalTime& now) const {
  const std::string stamp = StampOf(now);
  int serial = 0;
  for (const KeptCopy& copy : Kept()) {
    if (copy.id.starts_with(stamp)) serial = std::max(serial, SerialOf(copy.id));
  }
  return serial == 0 ? stamp : stamp + "-" + std::to_string(serial + 1);
}

// An earlier, failed attempt to replace the copy may have kept it already.
bool History::IsNewest(const std::string& bytes) const {
  const std::vector<KeptCopy> kept = Kept();
  if (kept.empty()) return false;
  const FileContent newest = files_.Read(kept.front().path);
  return !newest.error && newest.bytes == bytes;
}

std::optional<FileError> History::Keep(std::optional<std::string_view> next, const LocalTime& now) {
  if (count_ <= 0) return std::nullopt;
  const FileContent old = files_.Read(local_);
  if (old.error && old.error->reason == FileError::Reason::Missing) return std::nullopt;
  if (old.error) return old.error;
  if (next && *next == old.bytes) return std::nullopt;
  if (IsNewest(old.bytes)) return std::nullopt;
  if (auto error = files_.MakeDirectory(folder_)) return error;
  const std::string path = folder_ + stem_ + " " + NewId(now) + std::string(kEnding);
  if (auto error = files_.Write(path, old.bytes)) return error;
  justKept_ = path;
  return std::nullopt;
}

void History::Prune() {
  if (count_ <= 0) return;
  std::vector<KeptCopy> kept = Kept();
  // After the clock was set back, the newest copy is not the first by name.
  std::stable_partition(kept.begin(), kept.end(),
                        [this](const KeptCopy& copy) { return copy.path == justKept_; });
  // A copy that can't be removed does no harm; the next call tries again.
  const auto most = std::min(static_cast<std::size_t>(count_), kept.size());
  std::for_each(kept.begin() + static_cast<std::ptrdiff_t>(most), kept.end(),
                [this](const KeptCopy& copy) { static_cast<void>(files_.Remove(copy.path)); });
}

// Finds the longest common subsequence with the usual table; a local copy has some 200 lines.
std::vector<std::string> DifferencesOf(std::string_view before, std::string_view after) {
  const std::vector<std::string> a = LinesOf(before);
  const std::vector<std::string> b = LinesOf(after);
  std::vector<std::vector<int>> common(a.size() + 1, std::vector<int>(b.size() + 1));
  for (std::size_t i = a.size(); i-- > 0;) {
    for (std::size_t j = b.size(); j-- > 0;) {
      common[i][j] =
          a[i] == b[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  std::vector<std::string> differences;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() || j < b.size()) {
    if (i < a.size() && j < b.size() && a[i] == b[j]) {
      ++i;
      ++j;
    } else if (j == b.size() || (i < a.size() && common[i + 1][j] >= common[i][j + 1])) {
      differences.push_back("- " + a[i++]);
    } else {
      differences.push_back("+ " + b[j++]);
    }
  }
  return differences;
}

}  // namespace zek
