#include "comm/SessionFile.h"

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "comm/LogText.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "system/Paths.h"
#include "text/Controls.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr std::string_view kDateShape = "0000-00-00";

bool IsDate(std::string_view text) {
  return std::equal(
      text.begin(), text.end(), kDateShape.begin(), kDateShape.end(),
      [](char got, char shape) { return shape == '0' ? got >= '0' && got <= '9' : got == shape; });
}

}  // namespace

void SessionFile::Begin(ReplyLog& log, const std::string& path, int mostFiles) {
  if (path.empty()) return;
  const std::size_t star = path.rfind('*');
  daily_ = star != std::string::npos;
  before_ = path.substr(0, star);
  if (daily_) after_ = path.substr(star + 1);
  mostFiles_ = mostFiles;
  log.Record = [this](std::string_view line, const LocalTime& since) { Take(line, since); };
}

void SessionFile::Take(std::string_view line, const LocalTime& since) {
  if (since_ != since) {
    since_ = since;
    timeBefore_ = TimeBefore(since);
  }
  const std::string_view day = std::string_view(timeBefore_).substr(0, kDateShape.size());
  if (daily_ && day != day_) Write();
  if (waiting_.size() >= kMostKept) {
    ++lost_;
    return;
  }
  if (waiting_.empty()) day_ = day;
  std::string shown(line);
  ShowControls(shown);
  waiting_.append(timeBefore_).append(shown).append("\r\n");
  if (waiting_.size() >= kWriteAt) Write();
}

void SessionFile::Tick() {
  if (pause_ > 0) --pause_;
  Write();
}

void SessionFile::End() {
  pause_ = 0;
  Write();
  Write();  // the number of lost lines
}

void SessionFile::Write() {
  if (waiting_.empty() || pause_ > 0) return;
  const LocalTime begun = now_();
  const std::string path = PathOf(day_);
  const bool another = written_ != day_;
  // If it can't be made, nothing can be written in it either.
  if (another && !Folder().empty()) static_cast<void>(files_.MakeDirectory(Folder()));
  if (const auto error = files_.Append(path, waiting_)) {
    Pause(*error);
    return;
  }
  waiting_.clear();
  if (const std::size_t lost = std::exchange(lost_, 0); lost > 0)
    waiting_ = Message(texts_.Text(text::kSessionFileLost), {std::to_string(lost)}) + "\r\n";
  written_ = day_;
  if (another && daily_ && mostFiles_ > 0) RemoveOld();
  const std::int64_t took = SecondsBetween(begun, now_());
  if (took < kSlowSeconds) return;
  const std::string slow = Message(texts_.Text(text::kSessionFileSlow), {std::to_string(took)});
  Pause({path, FileError::Reason::Other, Utf8FromWindows1252(slow)});
}

// The text that waits is kept.
void SessionFile::Pause(const FileError& error) {
  pause_ = kPauseTicks;
  if (std::exchange(told_, true)) return;
  fault_ = texts_.Text(text::kSessionFileFailed) + "\r\n\r\n" + FileMessage(texts_, error);
}

std::string SessionFile::TakeFault() { return std::exchange(fault_, {}); }

std::string SessionFile::PathOf(std::string_view day) const {
  return daily_ ? before_ + std::string(day) + after_ : before_;
}

std::string SessionFile::Folder() const {
  const std::string folder = Utf8Of(zek::PathOf(before_).parent_path());
  return folder.empty() ? folder : before_.substr(0, folder.size() + 1);
}

// Removes files of other days only, whatever the clock says.
void SessionFile::RemoveOld() {
  const std::string folder = Folder();
  const std::string_view stem = std::string_view(before_).substr(folder.size());
  std::vector<std::string> others;
  for (const std::string& name : files_.List(folder.empty() ? "." : folder)) {
    const bool ours = name.size() == stem.size() + kDateShape.size() + after_.size() &&
                      name.starts_with(stem) && name.ends_with(after_) &&
                      IsDate(std::string_view(name).substr(stem.size(), kDateShape.size()));
    if (ours && folder + name != PathOf(day_)) others.push_back(folder + name);
  }
  const std::size_t kept = static_cast<std::size_t>(mostFiles_) - 1;
  for (std::size_t i = 0; i + kept < others.size(); ++i)
    static_cast<void>(files_.Remove(others[i]));
}

}  // namespace zek
