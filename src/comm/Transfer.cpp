#include "comm/Transfer.h"

#include <algorithm>
#include <utility>

#include "text/Controls.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

// Dropped lines are counted up to here: a peer may send without end.
constexpr std::size_t kMostCounted = 1'000'000'000;

bool Contains(std::string_view line, std::string_view word) {
  return line.find(word) != std::string_view::npos;
}

// A line that begins with a number and has a "!": a line of a catalogue, whatever it says.
bool IsContent(std::string_view line) {
  return Contains(line, "!") && Val(GetField(line, 0, "!")) > 0;
}

std::string WithoutStrays(std::string_view line) {
  std::string clean(line);
  std::erase_if(clean, IsStray);
  return clean;
}

bool IsDamage(char character) {
  constexpr unsigned char firstPrintable = 32;
  return static_cast<unsigned char>(character) < firstPrintable && character != '\t';
}

}  // namespace

void Transfer::Begin(TransferKind kind, std::string control) {
  Kind = kind;
  control_ = std::move(control);
  Refusal.clear();
}

void Transfer::Collect(TransferKind kind, std::string control) {
  Begin(kind, std::move(control));
  CatalogueLines.clear();
  CatalogueDfv = ".";
  DfvSeen = false;
  LinesDropped = 0;
  ExitSeen = false;
  ErrorSeen = false;
}

void Transfer::TakeReplyLine(std::string_view line, Countdowns& countdowns,
                             std::int16_t timeoutTicks) {
  switch (Kind) {
    case TransferKind::ReadSdc:
    case TransferKind::ReadWdc:
    case TransferKind::ReadOvc:
    case TransferKind::ReadWdcExceptions:
      if (FindControl(line) == std::string_view::npos) {
        TakeListingLine(line, countdowns, timeoutTicks);
      } else {
        TakeUncleanLine(line, countdowns, timeoutTicks);
      }
      break;
    case TransferKind::WriteSdc:
    case TransferKind::WriteWdc:
    case TransferKind::WriteOvc:
      if (Contains(line, "\x02") || Says(WithoutStrays(line), "ERROR")) {
        Refusal = WithoutStrays(line);
        Kind = TransferKind::Idle;
      }
      break;
    case TransferKind::Idle:
      break;
  }
}

void Transfer::TakeFirstLine(std::string_view line) {
  std::string clean = WithoutStrays(line);
  if (Kind == TransferKind::Idle || !Says(UpperCase(clean), "ERROR ")) return;
  Refusal = std::move(clean);
  Kind = TransferKind::Idle;
  ErrorSeen = true;
}

// True if the line has the word outside its content and outside the control's name. A line that is
// only that name still says it: "EXIT" ends a listing even of a control of that name.
bool Transfer::Says(std::string_view line, std::string_view word) const {
  if (!Contains(line, word) || IsContent(line)) return false;
  if (!Contains(control_, word) || Trim(line) == control_) return true;
  std::string rest(line);
  for (std::size_t at = 0; (at = rest.find(control_, at)) != std::string::npos;) {
    rest.replace(at, control_.size(), 1, ' ');
  }
  return Contains(rest, word);
}

void Transfer::TakeDamage(Countdowns& countdowns) {
  ErrorSeen = true;
  countdowns.ReplyCountdown = 0;
}

// Only lines with "!" (catalogue lines) or "=" (values) can be damaged: a header may contain any
// character. A tab is allowed everywhere.
void Transfer::TakeUncleanLine(std::string_view line, Countdowns& countdowns,
                               std::int16_t timeoutTicks) {
  const std::string clean = WithoutStrays(line);
  TakeListingLine(clean, countdowns, timeoutTicks);
  const bool damaged = std::any_of(clean.begin(), clean.end(), IsDamage);
  if (damaged && clean.find_first_of("!=") != std::string::npos) TakeDamage(countdowns);
}

void Transfer::TakeListingLine(std::string_view line, Countdowns& countdowns,
                               std::int16_t timeoutTicks) {
  if (Kind != TransferKind::ReadWdcExceptions && Val(GetField(line, 0, "!")) > 0) {
    if (CatalogueLines.size() >= kMaxCatalogueLines) {
      LinesDropped = std::min(LinesDropped + 1, kMostCounted);
    } else {
      CatalogueLines.emplace_back(line);
    }
    countdowns.ReplyCountdown = timeoutTicks;
  }
  if (Contains(line, ".DFV") && Contains(line, "=")) {
    CatalogueDfv = DfvValue(line);
    DfvSeen = true;
  }
  if (Kind == TransferKind::ReadWdc && Contains(line, ".EXC")) {
    Kind = TransferKind::ReadWdcExceptions;
  }
  if (Says(line, "EXIT")) {
    ExitSeen = true;
    Kind = TransferKind::Idle;
  }
  if (Says(line, "ERROR")) {
    Refusal = line;
    TakeDamage(countdowns);
  }
}

std::string DfvValue(std::string_view line) {
  return std::string(Trim(GetField(GetField(line, 1, "="), 0, "!")));
}

}  // namespace zek
