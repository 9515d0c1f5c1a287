#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "plant/Plant.h"

namespace zek::sim {

/// An outstation's reply to one command: lines without line ends. `refused` marks a line or
/// selector that the outstation does not accept; the connection decides how to send that.
struct PlantReply {
  std::vector<std::string> lines;
  bool refused = false;
};

/// One user's session with the command interpreter of an outstation. Commands come without their
/// carriage return and are case-insensitive.
///
/// Both generations: "LIST SDC", the selector ".SDC", "EXIT".
/// ZEK1: "LIST WDC", "LIST OVC", ".WDC", ".OVC".
/// ZEK2, for a time control T: "LIST T", "LIST T.EXC", "T.WDC", "T.EXC", "T.DFV=" value.
///
/// A listing consists of a header, the numbered lines and "EXIT". Before "EXIT", the listing of a
/// ZEK2 control has the ".DFV" line, if it has a default value, and, after weekday lines, the
/// ".EXC" part. After a selector every command up to "EXIT" is a catalogue line. It replaces the
/// line of the same number or is added. `Outstation::replaces` says which other lines go:
/// - Number: none. A catalogue that is sent with fewer lines keeps the rest.
/// - Control: in the shared catalogues of a ZEK1, the first line of a control after the selector
///   removes its other lines. Lines without a name belong together if they have the same number
///   without its last two digits. In all other catalogues as Catalogue.
/// - Catalogue: the selector removes all lines at once.
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
  void MakeRoom();
  void MakeRoomFor(std::string_view line);
  bool SelectZek1(std::string_view part);
  bool SelectZek2(std::string_view control, std::string_view part);
  bool Fits(std::string_view line) const;

  Outstation* outstation_;
  PlantCatalogue* selected_ = nullptr;  // of outstation_
  Part part_ = Part::Weekday;
  std::string controlName_;     // whose catalogue is selected, ZEK2
  std::set<std::string> sent_;  // the owners of lines since the selector
};

}  // namespace zek::sim
