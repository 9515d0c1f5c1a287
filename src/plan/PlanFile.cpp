#include "plan/PlanFile.h"

#include <algorithm>
#include <array>

#include "formats/CatalogueLine.h"
#include "text/Checksum.h"
#include "text/Controls.h"
#include "text/Fields.h"
#include "text/Lines.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr std::string_view kTab = "\t";
constexpr std::string_view kFormat = "ZEKView plan\t1";
constexpr std::string_view kChecksum = "checksum\t";
constexpr std::string_view kCatalogue = "catalogue";
constexpr std::string_view kControl = "control";
constexpr std::string_view kWas = "was";
constexpr std::string_view kWill = "will";

std::string ChecksumOf(std::string_view first, std::span<const std::string> lines) {
  Checksum checksum;
  checksum.Add(first);
  for (const std::string& line : lines) {
    checksum.Add("\n");
    checksum.Add(line);
  }
  return checksum.Text();
}

std::optional<Catalogue> KindIn(std::string_view text) {
  for (const Catalogue kind : {Catalogue::Sdc, Catalogue::Wdc, Catalogue::Ovc})
    if (KindText(kind) == text) return kind;
  return std::nullopt;
}

// Takes the records of a plan one after the other.
class PlanReader {
 public:
  bool Take(std::string_view record) {
    const std::string_view what = GetField(record, 0, kTab);
    const std::string_view rest = record.substr(std::min(record.size(), what.size() + 1));
    if (what == kCatalogue) return TakeCatalogue(rest);
    if (what == kControl) return TakeControl(rest);
    if (what == kWas) return TakeLine(&PlannedControl::was, rest);
    return what == kWill && TakeLine(&PlannedControl::will, rest);
  }

  bool IsEnded() const {
    return plan_.catalogues.empty() || !plan_.catalogues.back().controls.empty();
  }
  Plan Result() { return std::move(plan_); }

 private:
  bool TakeCatalogue(std::string_view rest) {
    enum { Kind, Topic, Type, Address, Tag, Lines, Count };
    if (!IsEnded() || std::count(rest.begin(), rest.end(), kTab.front()) != Count - 1) return false;
    const auto kind = KindIn(GetField(rest, Kind, kTab));
    const std::string_view type = GetField(rest, Type, kTab);
    if (!kind || (type != "1" && type != "2")) return false;
    PlannedCatalogue& catalogue = plan_.catalogues.emplace_back();
    catalogue.kind = *kind;
    catalogue.topic = GetField(rest, Topic, kTab);
    catalogue.type = type == "1" ? Generation::Zek1 : Generation::Zek2;
    catalogue.address = GetField(rest, Address, kTab);
    catalogue.tag = GetField(rest, Tag, kTab);
    catalogue.linesToSend = static_cast<std::size_t>(
        std::clamp<double>(Val(GetField(rest, Lines, kTab)), 0, kMaxCatalogueLines));
    return true;
  }

  bool TakeControl(std::string_view name) {
    if (plan_.catalogues.empty()) return false;
    PlannedCatalogue& catalogue = plan_.catalogues.back();
    if (!catalogue.IsShared() && !catalogue.controls.empty()) return false;
    catalogue.controls.push_back({std::string(name), {}, {}});
    return true;
  }

  bool TakeLine(std::vector<std::string> PlannedControl::*lines, std::string_view line) {
    if (plan_.catalogues.empty() || !IsEnded()) return false;
    auto& all = plan_.catalogues.back().controls.back().*lines;
    all.emplace_back(line);
    return all.size() <= kMaxCatalogueLines;
  }

  Plan plan_;
};

}  // namespace

std::string RecordOf(std::initializer_list<std::string_view> fields) {
  std::string record;
  for (const std::string_view& field : fields) {
    std::string shown(field);
    ShowControls(shown);
    if (&field != fields.begin()) record += kTab;
    record += shown;
  }
  return record;
}

std::string BuildRecords(std::string_view format, std::span<const std::string> records) {
  constexpr std::string_view lineEnd = "\r\n";
  std::string file(format);
  file += lineEnd;
  for (const std::string& record : records) file.append(record).append(lineEnd);
  return file.append(kChecksum).append(ChecksumOf(format, records)).append(lineEnd);
}

Records ReadRecords(std::string_view format, std::string_view file) {
  Records records;
  if (TakeLine(file) != format) {
    records.bad = 1;
    return records;
  }
  while (!file.empty()) {
    // A last line without an end was cut off.
    if (file.find('\n') == std::string_view::npos) break;
    const std::string_view line = TakeLine(file);
    if (line.starts_with(kChecksum) && file.empty()) {
      records.checksum = line.substr(kChecksum.size());
    } else {
      records.lines.emplace_back(line);
    }
  }
  if (records.checksum.empty() || records.checksum != ChecksumOf(format, records.lines))
    records.bad = records.lines.size() + 2;
  return records;
}

std::string BuildPlanFile(const Plan& plan) {
  std::vector<std::string> records;
  for (const PlannedCatalogue& each : plan.catalogues) {
    records.push_back(RecordOf({kCatalogue, KindText(each.kind), each.topic,
                                each.type == Generation::Zek1 ? "1" : "2", each.address, each.tag,
                                std::to_string(each.linesToSend)}));
    for (const PlannedControl& control : each.controls) {
      records.push_back(RecordOf({kControl, control.name}));
      for (const std::string& line : control.was) records.push_back(RecordOf({kWas, line}));
      for (const std::string& line : control.will) records.push_back(RecordOf({kWill, line}));
    }
  }
  return BuildRecords(kFormat, records);
}

PlanReading ReadPlanFile(std::string_view file) {
  Records records = ReadRecords(kFormat, file);
  PlanReader reader;
  for (std::size_t i = 0; i < records.lines.size(); ++i)
    if (!reader.Take(records.lines[i])) return {{}, i + 2, {}};
  if (records.bad > 0 || !reader.IsEnded()) return {{}, std::max<std::size_t>(records.bad, 1), {}};
  return {reader.Result(), 0, records.checksum};
}

}  // namespace zek
