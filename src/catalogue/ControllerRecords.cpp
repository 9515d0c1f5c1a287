#include "catalogue/ControllerRecords.h"

#include <algorithm>
#include <array>

#include "catalogue/CopyFormat.h"
#include "catalogue/LineChanges.h"
#include "system/Paths.h"
#include "text/Controls.h"
#include "text/Fields.h"
#include "text/Lines.h"

namespace zek {
namespace {

constexpr std::string_view kTab = "\t";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kLongestJournal = std::size_t{1} << 20;

struct Word {
  SeenToDo seen;
  std::string_view word;
};
constexpr auto kWords = std::to_array<Word>({{SeenToDo::ReplacesByNumber, "number"},
                                             {SeenToDo::ReplacesByControl, "control"},
                                             {SeenToDo::ReplacesByCatalogue, "catalogue"}});

// The start of the line about a catalogue: controllers may treat their catalogues differently.
std::string KeyOf(const CatalogueId& id) {
  return id.topic + std::string(kTab) + std::string(id.Kind().name) + std::string(kTab);
}

// True if there is a file with unknown content.
bool IsUnread(const FileContent& file) {
  return file.error && file.error->reason != FileError::Reason::Missing;
}

// The journal keeps its newer half when it becomes too long.
std::string_view Recent(std::string_view journal) {
  if (journal.size() <= kLongestJournal) return journal;
  const std::size_t end = journal.find(kLineEnd, journal.size() / 2);
  return journal.substr(end == std::string_view::npos ? journal.size() : end + kLineEnd.size());
}

// Controls that share a catalogue have records of their own in "Before" and "Begun". A calendar has
// one, whichever control it was opened for.
CatalogueId OwnFile(CatalogueId id) {
  if (id.IsPartOfShared()) id.localFile.insert(0, id.control + " ");
  if (!id.Kind().ofControl) id.control.clear();
  return id;
}

// Characters that no file name can have become "_", so two controls can have one file. Records of
// calendars once named the control for which they were opened.
std::optional<StoredCatalogue> OfNode(const CatalogueId& own,
                                      std::optional<StoredCatalogue> found) {
  if (!found) return std::nullopt;
  const bool same = found->node == own.Node() ||
                    (!own.Kind().ofControl && found->node.starts_with(own.topic + "/"));
  return same ? std::move(found) : std::nullopt;
}

// Lines with "*" are marked by the controller and never sent.
std::vector<std::string> Sorted(std::vector<std::string> lines) {
  lines = WithoutStarred(lines);
  for (std::string& line : lines) line = ComparableLine(line);
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace

std::string ControllerRecords::Folder(std::string_view name) const {
  return WithSeparator(settings_.ProgramPath + std::string(name));
}

void ControllerRecords::RememberKnown(const CatalogueId& id, const CatalogueContent& content) {
  // Without a record the next question says that nothing is known.
  if (KnownOf().Keep(id, content, now_())) ForgetKnown(id);
}

void ControllerRecords::ForgetKnown(const CatalogueId& id) {
  static_cast<void>(KnownOf().Drop(id));
}

std::optional<FileError> ControllerRecords::BeginWrite(const CatalogueId& id,
                                                       std::vector<std::string> lines) {
  if (const auto earlier = Unfinished(id))
    lines = Joined(lines, FindAgain(earlier->content.lines, lines).missing);
  lines.resize(std::min(lines.size(), kMaxCatalogueLines));
  return UnfinishedOf().Keep(id, {std::move(lines), {}, LinesFrom::Controller, 0}, now_());
}

void ControllerRecords::SentWrite(const CatalogueId& id, std::vector<std::string> lines) {
  // Otherwise the old lines stay unfinished.
  static_cast<void>(
      UnfinishedOf().Keep(id, {std::move(lines), {}, LinesFrom::Controller, 0}, now_()));
}

void ControllerRecords::EndWrite(const CatalogueId& id, std::span<const std::string> there) {
  const auto unfinished = Unfinished(id);
  if (!unfinished) return;
  if (!FindAgain(WithoutStarred(unfinished->content.lines), there).missing.empty()) return;
  static_cast<void>(UnfinishedOf().Drop(id));
}

std::optional<StoredCatalogue> ControllerRecords::FailedSending(const CatalogueId& id) const {
  const CatalogueId own = OwnFile(id);
  return OfNode(own, BegunOf().Find(own));
}

bool ControllerRecords::AnySendingFailed(const CatalogueId& id) const {
  if (!id.IsShared()) return FailedSending(id).has_value();
  const std::string file = LocalPath({}, id.localFile);
  const std::vector<std::string> begun = files_.List(Folder("Begun"));
  return std::any_of(begun.begin(), begun.end(),
                     [&file](const std::string& name) { return name.ends_with(file); });
}

std::optional<StoredCatalogue> ControllerRecords::BeforeSending(const CatalogueId& id) const {
  const CatalogueId own = OwnFile(id);
  auto begun = FailedSending(id);
  return begun ? std::move(begun) : OfNode(own, BeforeOf().Find(own));
}

bool ControllerRecords::BeginSending(const CatalogueId& id, const CatalogueContent& now) {
  const CatalogueId own = OwnFile(id);
  if (FailedSending(id)) return false;
  if (now.from == LinesFrom::Nowhere || BegunOf().Keep(own, now, now_())) ForgetSending(id);
  return true;
}

void ControllerRecords::EndSending(const CatalogueId& id) {
  const CatalogueId own = OwnFile(id);
  const auto begun = FailedSending(id);
  if (!begun || BeforeOf().Keep(own, begun->content, now_()))
    static_cast<void>(BeforeOf().Drop(own));
  ForgetSending(id);
}

void ControllerRecords::ForgetSending(const CatalogueId& id) {
  static_cast<void>(BegunOf().Drop(OwnFile(id)));
}

std::string ControllerRecords::SeenPath() const { return Folder("Known") + "CONTROLLERS.TXT"; }

SeenToDo ControllerRecords::SeenAt(const CatalogueId& id) const {
  const FileContent file = files_.Read(SeenPath());
  if (IsUnread(file)) return SeenToDo::Unread;
  const std::string key = KeyOf(id);
  for (std::string_view rest = file.bytes; !rest.empty();) {
    const std::string_view line = TakeLine(rest);
    if (!line.starts_with(key)) continue;
    for (const Word& each : kWords)
      if (line.substr(key.size()) == each.word) return each.seen;
  }
  return SeenToDo::Nothing;
}

void ControllerRecords::RememberSeen(const CatalogueId& id, SeenToDo seen) {
  const auto* const word = std::find_if(kWords.begin(), kWords.end(),
                                        [seen](const Word& each) { return each.seen == seen; });
  if (word == kWords.end() || SeenAt(id) == seen) return;
  const FileContent file = files_.Read(SeenPath());
  if (IsUnread(file)) return;  // else what the other controllers do would be lost
  const std::string key = KeyOf(id);
  std::string text;
  for (std::string_view rest = file.bytes; !rest.empty();) {
    const std::string_view line = TakeLine(rest);
    if (!line.starts_with(key)) text.append(line).append(kLineEnd);
  }
  text.append(key).append(word->word).append(kLineEnd);
  static_cast<void>(files_.MakeDirectory(Folder("Known")));
  static_cast<void>(files_.Write(SeenPath(), text));
}

void ControllerRecords::Journal(const CatalogueId& id, std::size_t lines,
                                std::string_view outcome) {
  const std::string path = settings_.ProgramPath + "SENT.TXT";
  const FileContent file = files_.Read(path);
  if (IsUnread(file)) return;
  std::string entry = DateAndTime(now_());
  for (const std::string& part : {user_, id.Node(), std::string(id.Kind().name),
                                  std::to_string(lines), std::string(outcome)}) {
    std::string shown = part;
    ShowControls(shown);
    entry.append(kTab).append(shown);
  }
  static_cast<void>(files_.Write(path, std::string(Recent(file.bytes)) + entry + "\r\n"));
}

bool HaveSameLines(const CatalogueContent& one, const CatalogueContent& other) {
  return !HasMoreThan(one, other) && !HasMoreThan(other, one);
}

bool HasMoreThan(const CatalogueContent& one, const CatalogueContent& other) {
  const auto lines = Sorted(one.lines);
  const auto others = Sorted(other.lines);
  return (one.dfv && other.dfv && one.dfv != other.dfv) ||
         !std::includes(others.begin(), others.end(), lines.begin(), lines.end());
}

}  // namespace zek
