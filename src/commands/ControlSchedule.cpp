#include "commands/ControlSchedule.h"

#include "forecast/MomentText.h"
#include "plan/Plan.h"
#include "text/Windows1252.h"

namespace zek::cli {

ControlReader::Source SourceFor(Console& console) {
  return {[&console](const CatalogueId& id) { return ReadCatalogue(console, id); },
          console.proc.settings.LocalMode,
          [&console](const CatalogueId& id, const std::string& line) {
            console.err << "zekview-cli: " << KindText(id.catalogue)
                        << ": not read: " << Utf8FromWindows1252(line) << '\n';
          }};
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
  if (arguments.today.empty()) return DayOf(console.proc.now());
  const auto today = ParseDay(arguments.today);
  if (today && IsKnownYear(DateOf(StartOf(*today)).year)) return today;
  Refuse(console, arguments.today + (today ? " is not in a year from 1990 to 2099"
                                           : " is no date, such as 2026-12-07"));
  return std::nullopt;
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
