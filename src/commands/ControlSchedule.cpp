#include "commands/ControlSchedule.h"

#include <algorithm>

#include "app/ControlTablesOf.h"
#include "forecast/MomentText.h"
#include "text/Windows1252.h"

namespace zek::cli {

// Null if the catalogue could not be fetched.
const CatalogueContent* ControlReader::Content(const CatalogueId& id) {
  const auto [found, isNew] = contents_.try_emplace(id.localFile);
  if (isNew) found->second = ReadCatalogue(console_, id);
  const bool missing = !found->second;
  if (missing && !console_.proc.settings.LocalMode) return nullptr;
  static const CatalogueContent empty;
  const CatalogueContent& content = missing ? empty : *found->second;
  hadAllCopies_ = hadAllCopies_ && !missing;
  complete_ = complete_ && !missing && content.linesDropped == 0;
  return &content;
}

void ControlReader::NameUnread(const CatalogueId& id, const std::vector<std::string>& lines) {
  complete_ = complete_ && lines.empty();
  std::string kind(id.Kind().name);
  std::transform(kind.begin(), kind.end(), kind.begin(),
                 [](char c) { return static_cast<char>(c - 'A' + 'a'); });
  for (const std::string& line : lines) {
    if (!named_.try_emplace(id.localFile + "\n" + line, true).second) continue;
    console_.err << "zekview-cli: " << kind << ": not read: " << Utf8FromWindows1252(line) << '\n';
  }
}

std::optional<ControlTables> ControlReader::Read(std::size_t node) {
  SelectNode(console_.proc, node);
  const Selection selection = console_.proc.selection;
  hadAllCopies_ = true;
  const CatalogueContent* const weekdays = Content(selection.Id(Catalogue::Wdc));
  if (weekdays == nullptr) return std::nullopt;
  const CatalogueContent* const calendar = Content(selection.Id(Catalogue::Sdc));
  if (calendar == nullptr) return std::nullopt;
  const CatalogueContent* const exceptions = Content(selection.Id(Catalogue::Ovc));
  if (exceptions == nullptr) return std::nullopt;
  ControlTables tables =
      ControlTablesOf(console_.proc, selection, {*weekdays, *calendar, *exceptions});
  NameUnread(selection.Id(Catalogue::Wdc), tables.weekdays.unread);
  NameUnread(selection.Id(Catalogue::Sdc), tables.calendar.unread);
  NameUnread(selection.Id(Catalogue::Ovc), tables.exceptions.unread);
  return tables;
}

std::optional<std::set<std::size_t>> ControlOperands(Console& console,
                                                     const std::vector<std::string>& names) {
  const ZV_Proc& proc = console.proc;
  std::set<std::size_t> roots;
  std::set<std::size_t> controls;
  for (const std::string& name : names) {
    const auto node = FindNode(proc.tree, proc.topics, Windows1252FromUtf8(name));
    if (!node) {
      Refuse(console, "unknown node " + name);
      return std::nullopt;
    }
    (proc.tree[*node].IsTimeControl() ? controls : roots).insert(*node);
  }
  for (std::size_t node = 0; node < proc.tree.size(); ++node) {
    const auto& parent = proc.tree[node].Parent;
    if (parent && (names.empty() || roots.contains(*parent))) controls.insert(node);
  }
  return controls;
}

std::optional<DayNumber> TodayFor(Console& console, const Arguments& arguments) {
  const LocalTime now = console.proc.now();
  if (arguments.today.empty()) return DayOf(DateMoment(now.year, now.month, now.day));
  const auto today = ParseDay(arguments.today);
  if (!today) Refuse(console, arguments.today + " is no date, such as 2026-12-07");
  return today;
}

std::optional<std::size_t> ControlOperand(Console& console, const std::string& name) {
  const ZV_Proc& proc = console.proc;
  const auto node = FindNode(proc.tree, proc.topics, Windows1252FromUtf8(name));
  if (!node) {
    Refuse(console, "unknown node " + name);
    return std::nullopt;
  }
  if (proc.tree[*node].IsTimeControl()) return node;
  Refuse(console, name + " is no time control");
  return std::nullopt;
}

}  // namespace zek::cli
