#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zek {

/// How a controller combines its catalogues. The controllers do not tell, so the doubtful points
/// are switches; each is off by default.
struct Rule {
  bool exceptionsCommand = false;  // an exception only switches when it begins: it masks nothing
  bool daysBeginAnew = false;      // nothing is carried over midnight
  bool missingStopsHold = false;   // a weekday stop without a value changes nothing
  bool earlyStopsNextDay = false;  // a stop at or before its start is meant for the next day

  /// "exception=mask,carry=yes,nostop=default,early=same"
  std::string Text() const;

  /// Sets the switches of a text such as "carry=no,early=next"; returns false, with nothing
  /// changed, if one is unknown.
  bool Set(std::string_view switches);

  /// Returns all variants, varied from the last switch, the defaults first.
  static std::vector<Rule> Variants();

  bool operator==(const Rule&) const = default;
};

}  // namespace zek
