#include "export/BatchFile.h"

#include <utility>

#include "system/Paths.h"
#include "text/Numbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr std::string_view kBegun = "Batch påbörjad "_w1252;
constexpr std::string_view kFinished = "Batch avslutad "_w1252;
constexpr std::string_view kStopped = "Batch stoppad "_w1252;

// Programs that read these files expect exactly these names, with this spelling; the weekday
// records have one column more.
constexpr std::string_view kWeekdayColumns =
    "/Objekt;DUC;Destionation;Mån;Tis;Ons;Tor;Fre;Lör;Sön;SD1;SD2;SD3;SD4;SD5;SD6;SD7;"_w1252;
constexpr std::string_view kCalendarColumns = "/Objekt;DUC;Datum;DagTyp"_w1252;
constexpr std::string_view kExceptionColumns =
    "/Objekt;DUC;Destionation;StartDatum;StartTid;StartVärde;StoppDatum;StoppTid;StoppVärde"_w1252;

std::string_view ColumnsOf(Catalogue kind) {
  switch (kind) {
    case Catalogue::Wdc:
      return kWeekdayColumns;
    case Catalogue::Sdc:
      return kCalendarColumns;
    case Catalogue::Ovc:
      break;
  }
  return kExceptionColumns;
}

// "YY-MM-DD HH:NN:SS" with these separators.
std::string Stamp(const LocalTime& t, std::string_view inDate, std::string_view between,
                  std::string_view inTime) {
  std::string stamp;
  stamp.append(ZeroPadded(t.year % 100, 2))
      .append(inDate)
      .append(ZeroPadded(t.month, 2))
      .append(inDate);
  stamp.append(ZeroPadded(t.day, 2)).append(between).append(ZeroPadded(t.hour, 2)).append(inTime);
  return stamp.append(ZeroPadded(t.minute, 2)).append(inTime).append(ZeroPadded(t.second, 2));
}

std::string LineStamp(const LocalTime& t) { return Stamp(t, "-", " ", ":"); }

}  // namespace

std::string FileStamp(const LocalTime& now) { return Stamp(now, "", "_", ""); }

void BatchFile::Open(Files& files, const std::string& directory, const LocalTime& now) {
  path_ = WithSeparator(directory) + std::string(KindOf(kind_).name) + FileStamp(now) + ".SKV";
  error_ = files.MakeDirectory(directory);
  if (error_) return;
  CreatedFile created = files.Create(path_);
  file_ = std::move(created.file);
  error_ = std::move(created.error);
}

void BatchFile::Close() {
  if (!IsOpen()) return;
  auto error = file_->Commit();
  inPlace_ = !error;
  if (error && !error_) error_ = std::move(error);
  file_.reset();
}

void BatchFile::WriteHeader(const LocalTime& now) {
  WriteLine(std::string(kBegun) + LineStamp(now) + std::string(ColumnsOf(kind_)));
}

void BatchFile::WriteFinished(const LocalTime& now) {
  WriteLine(std::string(kFinished) + LineStamp(now));
}

void BatchFile::WriteStopped(const LocalTime& now) {
  WriteLine(std::string(kStopped) + LineStamp(now));
}

std::optional<FileError> BatchFile::WriteRecords(const std::vector<std::string>& records) {
  if (!IsOpen()) return error_;
  std::string text;
  for (const std::string& record : records) text.append(record).append("\r\n");
  return file_->Append(text);
}

void BatchFile::WriteLine(std::string_view line) {
  if (!IsOpen()) return;
  auto error = file_->Append(std::string(line) + "\r\n");
  if (error && !error_) error_ = std::move(error);
}

}  // namespace zek
