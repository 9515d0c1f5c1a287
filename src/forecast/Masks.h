#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "forecast/Schedule.h"

namespace zek {

/// A time in which an exception's start value applies, whatever else is commanded.
struct Mask {
  Moment from = 0;
  Moment to = 0;          // the first minute after it
  std::size_t place = 0;  // the exception's, among the lines
};

/// The exceptions that mask: those with a start value that last for some time. Of several that are
/// active the one with the latest start applies, of equal starts the later line.
class Masks {
 public:
  explicit Masks(std::vector<ExceptionLine> exceptions);

  /// Returns the mask that applies at a moment, cut to the time in which it does; null for none.
  const Mask* At(Moment moment) const;

  /// Returns the last mask that ended at or before a moment, or the first one that begins after
  /// it; null for none.
  const Mask* EndedBefore(Moment moment) const;
  const Mask* BeginningAfter(Moment moment) const;

  /// Returns the exceptions that are active at a moment, the one that applies first.
  std::vector<ExceptionLine> ActiveAt(Moment moment) const;

  const ExceptionLine& Exception(const Mask& mask) const { return exceptions_.at(mask.place); }

 private:
  std::vector<ExceptionLine> exceptions_;
  std::vector<Mask> active_;  // of each exception its whole time; the one that wins last
  std::vector<Mask> masks_;   // sorted, without overlaps
};

}  // namespace zek
