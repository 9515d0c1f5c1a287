#include "commands/ControlSchedule.h"

#include "text/Windows1252.h"

namespace zek::cli {
namespace {

// Reads the catalogues one by one and remembers what was missing.
class ControlReader {
 public:
  ControlReader(Console& console, const Selection& selection)
      : console_(console), selection_(selection) {}

  /// Returns nothing if a fetch failed; empty content for a local copy that is missing.
  std::optional<CatalogueContent> Read(Catalogue catalogue) {
    std::optional<CatalogueContent> content = ReadCatalogue(console_, selection_.Id(catalogue));
    if (content || !console_.proc.settings.LocalMode) {
      if (content && content->linesDropped > 0) complete_ = false;
      return content;
    }
    complete_ = false;
    return CatalogueContent();
  }

  void NameUnread(std::string_view kind, const std::vector<std::string>& lines) {
    if (lines.empty()) return;
    complete_ = false;
    for (const std::string& line : lines) {
      console_.err << "zekview-cli: " << kind << ": not read: " << Utf8FromWindows1252(line)
                   << '\n';
    }
  }

  bool Complete() const { return complete_; }

 private:
  Console& console_;
  const Selection& selection_;
  bool complete_ = true;
};

}  // namespace

std::optional<ReadSchedule> ReadControl(Console& console, std::size_t node) {
  SelectNode(console.proc, node);
  const Selection selection = console.proc.selection;
  ControlReader reader(console, selection);
  const auto weekdays = reader.Read(Catalogue::Wdc);
  if (!weekdays) return std::nullopt;
  const auto calendar = reader.Read(Catalogue::Sdc);
  if (!calendar) return std::nullopt;
  const auto exceptions = reader.Read(Catalogue::Ovc);
  if (!exceptions) return std::nullopt;
  const LineOwner owner = selection.Id(Catalogue::Wdc).Owner();
  const CalendarYears years = YearsOf(console.proc.settings, selection.generation);
  ReadSchedule read{ReadWeekday(weekdays->lines, owner),
                    ReadCalendar(calendar->lines, years, CalendarYears::kFirst),
                    ReadExceptions(exceptions->lines, owner),
                    {weekdays->dfv, exceptions->dfv},
                    true};
  reader.NameUnread("wdc", read.weekdays.unread);
  reader.NameUnread("sdc", read.calendar.unread);
  reader.NameUnread("ovc", read.exceptions.unread);
  read.complete = reader.Complete();
  return read;
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
