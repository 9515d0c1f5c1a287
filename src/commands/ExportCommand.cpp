#include "commands/Commands.h"
#include "export/BatchExport.h"
#include "system/Process.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

// Returns nothing, after a message, if an operand is not a kind.
std::optional<BatchKinds> KindsOf(Console& console, const std::vector<std::string>& operands) {
  if (operands.empty()) return BatchKinds{};
  BatchKinds kinds{false, false, false};
  for (const std::string& operand : operands) {
    const std::optional<Catalogue> kind = CatalogueOf(operand);
    if (!kind) {
      console.err << "zekview-cli: unknown kind " << operand << " (wdc, sdc or ovc)\n";
      return std::nullopt;
    }
    kinds.WDC = kinds.WDC || *kind == Catalogue::Wdc;
    kinds.SDC = kinds.SDC || *kind == Catalogue::Sdc;
    kinds.OVC = kinds.OVC || *kind == Catalogue::Ovc;
  }
  return kinds;
}

void PrintReport(Console& console, const BatchReport& report) {
  for (const std::string& line : report.Failures(console.proc.texts))
    console.err << Utf8FromWindows1252(line) << '\n';
  console.err << Utf8FromWindows1252(report.Headline(console.proc.texts)) << '\n';
  for (const std::string& file : report.files) console.out << file << '\n';
}

}  // namespace

ExitStatus Export(Console& console, const Arguments& arguments) {
  console.hasInput();
  ZV_Proc& proc = console.proc;
  const std::optional<BatchKinds> kinds = KindsOf(console, arguments.operands);
  if (!kinds) return kWrongUsage;
  proc.batch.Kinds = *kinds;
  proc.settings.DecimalSeparator = SystemDecimalSeparator();  // as /BATCH does
  BatchExport batch(proc);
  batch.Start();
  while (batch.Tick()) proc.waits.RunPending();
  PrintReport(console, batch.Report());
  return batch.Report().Succeeded() ? kDone : kFailed;
}

}  // namespace zek::cli
