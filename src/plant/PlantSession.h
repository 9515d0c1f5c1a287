#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "plant/Plant.h"

namespace zek::sim {

/// What an outstation says to one command: whole lines without their ends. `refused` marks a line
/// or selector that the outstation can't take; how that is shown is the connection's affair.
struct PlantReply {
  std::vector<std::string> lines;
  bool refused = false;
};

/// One user at the command interpreter of one outstation. Commands come without their carriage
/// return; letters are taken in either case.
///
/// Both generations: "LIST SDC", the selector ".SDC", "EXIT".
/// ZEK1: "LIST WDC", "LIST OVC", ".WDC", ".OVC".
/// ZEK2, for a time control T: "LIST T", "LIST T.EXC", "T.WDC", "T.EXC", "T.DFV=" value.
///
/// A list answers with a header, the numbered lines, the ".DFV" line of a time control that has a
/// default value, after the weekday lines of a time control its ".EXC" part, and "EXIT". After a
/// selector every command is a catalogue line until "EXIT": a numbered line replaces the line of
/// the same number or is added, all others stay as they are. Nothing removes a line, so a catalogue
/// that is sent with fewer lines than it had keeps the rest.
class PlantSession {
 public:
  explicit PlantSession(Outstation& outstation) : outstation_(&outstation) {}

  PlantReply Answer(std::string_view command);

  /// True between a selector and "EXIT".
  bool TakingLines() const { return selected_ != nullptr; }

 private:
  enum class Part { Weekday, Calendar, Exceptions };

  PlantReply AnswerList(std::string_view what) const;
  PlantReply TakeLine(std::string_view line);
  PlantReply TakeDefaultValue(std::string_view control, std::string_view value);
  PlantReply Select(std::string_view selector);
  bool SelectZek1(std::string_view part);
  bool SelectZek2(std::string_view control, std::string_view part);
  bool Fits(std::string_view line) const;

  Outstation* outstation_;
  PlantCatalogue* selected_ = nullptr;  // of outstation_
  Part part_ = Part::Weekday;
  std::string controlName_;  // whose catalogue is selected, ZEK2
};

}  // namespace zek::sim
