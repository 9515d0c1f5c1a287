#include <algorithm>

#include "catalogue/ControllerRecords.h"
#include "commands/Commands.h"
#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

ExitStatus List(Console& console, const std::vector<KeptCopy>& kept) {
  for (const KeptCopy& copy : kept) console.out << copy.id << '\t' << copy.time << '\n';
  return kDone;
}

ExitStatus Compare(Console& console, const CatalogueId& id, const KeptCopy& copy) {
  auto differences = console.proc.copies.CompareWith(id, copy);
  if (!differences) return kFailed;
  for (std::string& line : *differences) {
    ShowControls(line);
    console.out << Utf8FromWindows1252(line) << '\n';
  }
  return kDone;
}

ExitStatus Undo(Console& console, const CatalogueId& id) {
  const bool unsent = console.proc.catalogues.HasUnsentChanges(id);
  const std::string before = console.proc.catalogues.TimeOfBefore(id);
  if (before.empty())
    return Refuse(console, "history: nothing is known from before the last sending");
  console.hasInput();
  console.prompts.answerYes = true;
  const CatalogueContent copy = console.proc.copies.Peek(id);
  const bool done = console.proc.catalogues.SendBack(id).Done();
  if (unsent && !HaveSameLines(copy, console.proc.copies.Peek(id))) {
    console.proc.ToUser().Tell(Icon::Information, text::kUnsentReplaced,
                               {id.Node() + " " + std::string(id.Kind().name)});
  }
  return done ? kDone : kFailed;
}

}  // namespace

ExitStatus HistoryOfCatalogue(Console& console, const CatalogueId& id, const Arguments& arguments) {
  const std::vector<KeptCopy> kept = console.proc.copies.HistoryOf(id).Kept();
  constexpr std::size_t what = 2;
  constexpr std::size_t which = 3;
  if (arguments.operands.size() == what) return List(console, kept);
  const std::string& action = arguments.operands[what];
  if (action == kUndoAction) {
    if (arguments.operands.size() > which)
      return Refuse(console, "history: undo takes no ID; restore brings back a copy");
    return Undo(console, id);
  }
  if (action != "compare" && action != "restore")
    return Refuse(console, "history: unknown " + action);
  if (arguments.operands.size() == which)
    return Refuse(console, "history: " + action + " needs an ID");
  const auto copy = std::find_if(kept.begin(), kept.end(), [&](const KeptCopy& each) {
    return each.id == arguments.operands[which];
  });
  if (copy == kept.end())
    return Refuse(console, "history: there is no copy " + arguments.operands[which]);
  if (action == "compare") return Compare(console, id, *copy);
  return console.proc.copies.Restore(id, *copy) ? kDone : kFailed;
}

}  // namespace zek::cli
