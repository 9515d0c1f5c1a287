#include "plan/OpenPlan.h"

#include <utility>

#include "lang/TextNumbers.h"
#include "plan/PlanFile.h"
#include "text/Windows1252.h"

namespace zek {

OpenedPlan OpenPlan(ZV_Proc& proc, const std::string& path) {
  OpenedPlan opened;
  const std::string shown = Windows1252FromUtf8(path);
  TakenLock taken = proc.files.Lock(path);
  if (taken.error) {
    const bool inUse = taken.error->reason == FileError::Reason::InUse;
    opened.why = inUse ? proc.ToUser().Text(text::kPlanInUse, {shown})
                       : FileMessage(proc.texts, *taken.error);
    return opened;
  }
  opened.lock = std::move(taken.lock);
  const FileContent file = proc.files.Read(path);
  if (file.error) {
    opened.why = FileMessage(proc.texts, *file.error);
    return opened;
  }
  PlanReading reading = ReadPlanFile(file.bytes);
  if (reading.bad > 0) {
    opened.why = DamagedText(proc, path, reading.bad);
    return opened;
  }
  opened.plan = std::move(reading.plan);
  opened.started.emplace(proc.files, path, reading.checksum);
  if (!opened.started->IsOfPlan()) opened.why = StartedText(proc, path);
  return opened;
}

std::string DamagedText(ZV_Proc& proc, const std::string& path, std::size_t line) {
  return proc.ToUser().Text(text::kPlanDamaged, {Windows1252FromUtf8(path), std::to_string(line)});
}

std::string StartedText(ZV_Proc& proc, const std::string& path) {
  return proc.ToUser().Text(text::kPlanStarted, {Windows1252FromUtf8(StartedNote::PathOf(path))});
}

}  // namespace zek
