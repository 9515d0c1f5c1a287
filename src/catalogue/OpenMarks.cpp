#include "catalogue/OpenMarks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <utility>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "system/Paths.h"
#include "text/Checksum.h"
#include "text/Fields.h"
#include "text/Lines.h"

namespace zek {
namespace {

constexpr std::string_view kTab = "\t";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kFormat = "ZEKView open 1";
constexpr std::string_view kEnding = ".OPEN";
constexpr std::size_t kLongestName = 60;
constexpr std::size_t kMostRefreshed = 2000;  // lines; then the file begins anew
constexpr std::int64_t kDay = 86400;          // seconds
constexpr std::size_t kDateLength = 10;       // of "2026-11-22 14:02:30"
constexpr std::size_t kMinuteLength = 16;

// Of a line that `DateAndTime` made.
std::optional<LocalTime> TimeIn(std::string_view line) {
  constexpr std::array<std::pair<std::size_t, std::size_t>, 6> parts{
      {{0, 4}, {5, 2}, {8, 2}, {11, 2}, {14, 2}, {17, 2}}};
  std::array<int, parts.size()> numbers{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto [at, length] = parts.at(i);
    if (line.size() < at + length) return std::nullopt;
    const std::string_view part = line.substr(at, length);
    if (std::from_chars(part.data(), part.data() + length, numbers.at(i)).ptr !=
        part.data() + length) {
      return std::nullopt;
    }
  }
  const auto [year, month, day, hour, minute, second] = numbers;
  const LocalTime time{year, month, day, hour, minute, second, 0};
  return DateAndTime(time) == line ? std::optional(time) : std::nullopt;
}

}  // namespace

struct OpenMarks::Mark {
  std::string localFile;
  std::string control;
  std::string user;
  std::string computer;
  std::string since;
  std::string last;  // the time of the last whole line

  // Returns nothing if `file` is no whole mark.
  static std::optional<Mark> Read(std::string_view file) {
    const std::string_view head = TakeLine(file);
    const std::size_t end = head.rfind('\t');
    if (end == std::string_view::npos || GetField(head, 0, kTab) != kFormat ||
        head.substr(end + 1) != Checksum::Of(head.substr(0, end))) {
      return std::nullopt;
    }
    const auto field = [head](std::size_t index) {
      return Shortened(GetField(head, index, kTab), kLongestName);
    };
    Mark mark{std::string(GetField(head, 1, kTab)), field(2), field(3), field(4), field(5), {}};
    mark.last = mark.since;
    while (!file.empty()) {
      const std::string_view line = TakeLine(file);
      if (TimeIn(line)) mark.last = line;
    }
    return TimeIn(mark.since) ? std::optional(std::move(mark)) : std::nullopt;
  }
};

std::string OpenMarks::Folder() const { return WithSeparator(settings_.ProgramPath + "Open"); }

// --- The own marks ---

void OpenMarks::Open(const CatalogueId& id) {
  if (id.localFile.empty()) return;
  Own& own = own_[id.localFile];
  const std::string name =
      Checksum::Of(id.localFile + "\t" + self_.computer + "\t" + self_.process);
  own.path = Folder() + name + std::string(kEnding);
  own.text = kFormat;
  for (const std::string& field :
       {id.localFile, id.control, self_.user, self_.computer, DateAndTime(now_())}) {
    own.text.append(kTab).append(field);
  }
  const std::string checksum = Checksum::Of(own.text);
  own.text.append(kTab).append(checksum).append(kLineEnd);
  Write(own);
}

bool OpenMarks::Write(Own& own) {
  own.lock.reset();
  own.refreshed = 0;
  if (files_.MakeDirectory(Folder()) || files_.Write(own.path, own.text)) return false;
  own.lock = files_.Lock(own.path).lock;
  return true;
}

// The file stays the same one, since a lock belongs to a file and not to a name.
void OpenMarks::Refresh(const CatalogueId& id) {
  const auto found = own_.find(id.localFile);
  if (found == own_.end()) return;
  Own& own = found->second;
  const bool there = files_.Exists(own.path) && ++own.refreshed <= kMostRefreshed;
  if (!there && !Write(own)) return;
  static_cast<void>(files_.Append(own.path, DateAndTime(now_()) + std::string(kLineEnd)));
}

void OpenMarks::Close(const CatalogueId& id) {
  const auto found = own_.find(id.localFile);
  if (found == own_.end()) return;
  found->second.lock.reset();  // a file that is open can't be removed everywhere
  static_cast<void>(files_.Remove(found->second.path));
  own_.erase(found);
}

// --- The marks of others ---

bool OpenMarks::IsOwn(const std::string& path) const {
  return std::any_of(own_.begin(), own_.end(),
                     [&path](const auto& each) { return each.second.path == path; });
}

bool OpenMarks::IsStale(const std::string& path, const Mark& mark, std::size_t size) {
  const TakenLock taken = files_.Lock(path);
  if (taken.error && taken.error->reason == FileError::Reason::InUse) return false;
  if (taken.lock && mark.computer == self_.computer) return true;
  const LocalTime now = now_();
  Seen& seen = seen_.try_emplace(path, Seen{size, now}).first->second;
  if (seen.size != size || SecondsBetween(seen.since, now) < 0) seen = {size, now};
  if (SecondsBetween(seen.since, now) >= kSilentSeconds) return true;
  const auto last = TimeIn(mark.last);
  return !last || std::abs(SecondsBetween(*last, now)) > kDay;
}

std::string OpenMarks::OthersAt(const CatalogueId& id) {
  std::string others;
  for (const std::string& name : files_.List(Folder())) {
    const std::string path = Folder() + name;
    if (!name.ends_with(kEnding) || IsOwn(path)) continue;
    const FileContent file = files_.Read(path);
    const auto mark = file.error ? std::nullopt : Mark::Read(file.bytes);
    if (!mark) continue;
    if (IsStale(path, *mark, file.bytes.size())) {
      seen_.erase(path);
      if (!settings_.ViewOnly) static_cast<void>(files_.Remove(path));
    } else if (mark->localFile == id.localFile) {
      others += (others.empty() ? "" : ", ") + Words(*mark, id);
    }
  }
  return others;
}

std::string OpenMarks::Words(const Mark& mark, const CatalogueId& id) const {
  const bool today = DateAndTime(now_()).starts_with(mark.since.substr(0, kDateLength));
  const std::size_t from = today ? kDateLength + 1 : 0;
  const std::string name = mark.computer == self_.computer ? mark.user
                                                           : Message(texts_.Text(text::kOpenedByAt),
                                                                     {mark.user, mark.computer});
  std::string words =
      Message(texts_.Text(text::kOpenedBy), {name, mark.since.substr(from, kMinuteLength - from)});
  if (!mark.control.empty() && mark.control != id.control) words += " (" + mark.control + ")";
  return words;
}

}  // namespace zek
