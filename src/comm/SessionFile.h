#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "comm/ReplyLog.h"
#include "lang/LanguageTexts.h"
#include "system/Files.h"
#include "system/LocalTime.h"

namespace zek {

/// Writes every line of the log to a file, with its time; at the end of what the file has, once a
/// tick. "*" in the file's name is the date, so each day has its file; of these the oldest are
/// removed.
///
/// A disk that is full, slow or gone harms nothing: after a write that fails or takes long there is
/// a pause of a minute, at most about 1 MiB is kept meanwhile, and the file says how many lines it
/// lacks.
class SessionFile {
 public:
  static constexpr std::size_t kMostKept = std::size_t{1} << 20;  // bytes
  static constexpr std::size_t kWriteAt = std::size_t{64} << 10;  // bytes, without a tick
  static constexpr std::int64_t kSlowSeconds = 2;
  static constexpr int kPauseTicks = 300;

  SessionFile(Files& files, const LanguageTexts& texts, const Clock& now)
      : files_(files), texts_(texts), now_(now) {}

  /// Records the lines of `log` from now on. `path` is UTF-8; "": none. `mostFiles` limits the
  /// files of the days; 0: no limit.
  void Begin(ReplyLog& log, const std::string& path, int mostFiles);

  /// Call it at every tick.
  void Tick();

  /// Writes what is left; at the end of the program.
  void End();

  /// Returns, only once, why the file could not be written; "" without a failure.
  std::string TakeFault();

 private:
  void Take(std::string_view line, const LocalTime& since);
  void Write();
  void Pause(const FileError& error);
  std::string PathOf(std::string_view day) const;
  std::string Folder() const;
  void RemoveOld();

  Files& files_;
  const LanguageTexts& texts_;
  const Clock& now_;
  std::string before_;  // the path up to the date
  std::string after_;
  bool daily_ = false;
  int mostFiles_ = 0;
  std::string waiting_;     // not written yet
  std::string day_;         // of its first line: "2026-11-22"
  std::string written_;     // the day whose file was written last
  std::string timeBefore_;  // of the line taken last
  std::optional<LocalTime> since_;
  std::size_t lost_ = 0;
  int pause_ = 0;  // ticks
  std::string fault_;
  bool told_ = false;
};

}  // namespace zek
