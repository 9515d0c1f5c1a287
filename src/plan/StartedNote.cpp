#include "plan/StartedNote.h"

#include <utility>

#include "plan/PlanFile.h"

namespace zek {
namespace {

constexpr std::string_view kCatalogue = "catalogue\t";
constexpr std::string_view kLine = "line\t";

std::string KeyOf(const PlannedCatalogue& catalogue) {
  return RecordOf({KindText(catalogue.kind), catalogue.Node()});
}

}  // namespace

StartedNote::StartedNote(Files& files, const std::string& planPath, std::string checksum)
    : files_(files),
      path_(PathOf(planPath)),
      format_("ZEKView started plan\t1\t" + std::move(checksum)) {
  if (!files_.Exists(path_)) return;
  const FileContent file = files_.Read(path_);
  const Records records = ReadRecords(format_, file.bytes);
  isOfPlan_ = !file.error && records.bad == 0;
  Lines* lines = nullptr;
  for (const std::string& record : records.lines) {
    if (record.starts_with(kCatalogue)) lines = &started_[record.substr(kCatalogue.size())];
    if (record.starts_with(kLine) && lines != nullptr)
      lines->push_back(record.substr(kLine.size()));
  }
}

const StartedNote::Lines* StartedNote::Before(const PlannedCatalogue& catalogue) const {
  const auto found = started_.find(KeyOf(catalogue));
  return found == started_.end() ? nullptr : &found->second;
}

std::optional<FileError> StartedNote::Begin(const PlannedCatalogue& catalogue,
                                            const Lines& before) {
  started_[KeyOf(catalogue)] = before;
  return Write();
}

std::optional<FileError> StartedNote::End(const PlannedCatalogue& catalogue) {
  if (started_.erase(KeyOf(catalogue)) == 0) return std::nullopt;
  return started_.empty() ? files_.Remove(path_) : Write();
}

std::optional<FileError> StartedNote::Write() {
  std::vector<std::string> records;
  for (const auto& [key, lines] : started_) {
    records.push_back(std::string(kCatalogue) + key);
    for (const std::string& line : lines) records.push_back(std::string(kLine) + line);
  }
  return files_.Write(path_, BuildRecords(format_, records));
}

}  // namespace zek
