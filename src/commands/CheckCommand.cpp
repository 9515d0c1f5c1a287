#include "commands/Commands.h"
#include "export/CatalogueRecords.h"
#include "import/ImportText.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

void Print(Console& console, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) console.out << Utf8FromWindows1252(line) << '\n';
}

}  // namespace

ExitStatus Check(Console& console, const CatalogueId& id, std::size_t node,
                 const Arguments& arguments) {
  ZV_Proc& proc = console.proc;
  const std::optional<std::string> text = ReadFileOperand(console, arguments.operands[2]);
  if (!text) return kWrongUsage;
  const auto content =
      proc.copies.Parse(id, DecodedText(*text), Windows1252FromUtf8(arguments.operands[2]));
  if (!content) return kFailed;
  const LoadedCatalogue checked =
      LoadCatalogue(id, *content, LabelsOf(proc.tree[node]), proc.settings, proc.Numbers());
  const ExitStatus status = checked.linesLost == 0 ? kDone : kFailed;
  if (status != kDone) {
    console.err << "zekview-cli: lines that a saved catalogue would lose: " << checked.linesLost
                << '\n';
  }
  if (!arguments.rebuild) {
    Print(console, checked.records);
    return status;
  }
  const std::optional<BuiltLines> rebuilt = checked.rebuild();
  if (!rebuilt) return kFailed;
  if (const auto* const error = std::get_if<BuildError>(&*rebuilt)) {
    console.prompts.Show(Icon::Exclamation, error->MessageIn(proc.texts));
    return kFailed;
  }
  Print(console, std::get<std::vector<std::string>>(*rebuilt));
  return status;
}

}  // namespace zek::cli
