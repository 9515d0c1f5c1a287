#include "plant/PlantSession.h"

#include <iterator>

#include "plant/PlantLine.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek::sim {
namespace {

PlantReply Say(std::string_view line) { return {{std::string(line)}, false}; }

PlantReply Refuse() { return {{}, true}; }

void Append(std::vector<std::string>& lines, const PlantCatalogue& catalogue) {
  for (const auto& [number, line] : catalogue.lines) lines.push_back(line);
}

PlantReply ListOf(const PlantCatalogue& catalogue) {
  PlantReply reply{{catalogue.header}, false};
  Append(reply.lines, catalogue);
  return reply;
}

PlantReply Finished(PlantReply reply) {
  reply.lines.emplace_back("EXIT");
  return reply;
}

void AppendDefaultValue(PlantReply& reply, const TimeControl& control) {
  if (control.defaultValue) reply.lines.push_back(".DFV = " + *control.defaultValue);
}

PlantReply WeekdayList(const TimeControl& control) {
  PlantReply reply = ListOf(control.weekday);
  AppendDefaultValue(reply, control);
  reply.lines.emplace_back(".EXC");
  Append(reply.lines, control.exceptions);
  return Finished(std::move(reply));
}

PlantReply ExceptionList(const TimeControl& control) {
  PlantReply reply = ListOf(control.exceptions);
  AppendDefaultValue(reply, control);
  return Finished(std::move(reply));
}

bool IsControlCharacter(std::string_view command) {
  return command.size() == 1 && static_cast<unsigned char>(command[0]) < 32;
}

// Returns the text from the last "." on (".WDC"), upper-cased; "" without a ".".
std::string LastPart(std::string_view text) {
  const std::size_t dot = text.rfind('.');
  return dot == std::string_view::npos ? std::string() : UpperCase(text.substr(dot));
}

bool IsSelector(std::string_view text) {
  const std::string part = LastPart(text);
  return part == ".WDC" || part == ".SDC" || part == ".OVC" || part == ".EXC";
}

// Returns whose line it is in a shared catalogue: a name, or "!" and the block of its number.
std::string OwnerOf(std::string_view line) {
  constexpr std::size_t bar = 6;
  constexpr std::size_t nameLength = 12;
  constexpr int block = 100;
  const bool named = line.size() > bar && line[bar] == '!';
  return named ? std::string(Trim(line.substr(bar + 1, nameLength)))
               : "!" + std::to_string(LineNumber(line) / block);
}

}  // namespace

PlantReply PlantSession::Answer(std::string_view command) {
  const std::string_view word = Trim(command);
  const std::string upper = UpperCase(word);
  const bool zek2 = outstation_->generation == Generation::Zek2;
  if (IsControlCharacter(command)) return Say(zek2 ? "ZEK2" : "ZEK1");
  if (word.empty()) return Say("OK");
  if (upper == "EXIT") {
    selected_ = nullptr;
    return Say("OK");
  }
  const std::size_t value = upper.find(".DFV=");
  if (zek2 && value != std::string::npos) {
    return TakeDefaultValue(word.substr(0, value), Trim(word.substr(value + 5)));
  }
  const bool list = upper.rfind("LIST ", 0) == 0;
  if (!list && IsSelector(word)) return Select(word);
  if (TakingLines()) return TakeLine(command);
  if (list) return AnswerList(Trim(word.substr(5)));
  return Say("OKÄNT KOMMANDO"_w1252);
}

PlantReply PlantSession::AnswerList(std::string_view what) const {
  const std::string upper = UpperCase(what);
  if (upper == "SDC") return Finished(ListOf(outstation_->calendar));
  if (outstation_->generation == Generation::Zek1) {
    if (upper == "WDC") return Finished(ListOf(outstation_->weekday));
    if (upper == "OVC") return Finished(ListOf(outstation_->exceptions));
  } else {
    const bool exceptions = LastPart(what) == ".EXC";
    const std::string_view name = exceptions ? what.substr(0, what.size() - 4) : what;
    const TimeControl* const control = outstation_->FindControl(name);
    if (control != nullptr) return exceptions ? ExceptionList(*control) : WeekdayList(*control);
  }
  return Say("ERROR SAKNAS");
}

PlantReply PlantSession::TakeLine(std::string_view line) {
  if (!IsPlainLine(line) || !Fits(line)) return Refuse();
  MakeRoomFor(line);
  if (!selected_->Put(LineNumber(line), line)) return Refuse();
  outstation_->changed = true;
  return Say("OK");
}

// Removes what a selector replaces.
void PlantSession::MakeRoom() {
  sent_.clear();
  const bool shared = outstation_->generation == Generation::Zek1 && part_ != Part::Calendar;
  if (outstation_->replaces == Replaces::Number) return;
  if (outstation_->replaces == Replaces::Control && shared) return;
  outstation_->changed = outstation_->changed || !selected_->lines.empty();
  selected_->lines.clear();
}

// Removes what a line replaces besides the line of its number.
void PlantSession::MakeRoomFor(std::string_view line) {
  const bool first = sent_.insert(OwnerOf(line)).second;
  if (outstation_->replaces != Replaces::Control || !first) return;
  std::erase_if(selected_->lines,
                [&](const auto& each) { return OwnerOf(each.second) == OwnerOf(line); });
}

bool PlantSession::Fits(std::string_view line) const {
  const Generation generation = outstation_->generation;
  switch (part_) {
    case Part::Calendar:
      return IsCalendarLine(line, generation);
    case Part::Exceptions:
      return IsExceptionLine(line, generation);
    case Part::Weekday:
      break;
  }
  return generation == Generation::Zek1 ? IsZek1WeekdayLine(line)
                                        : IsZek2WeekdayLine(line, controlName_);
}

PlantReply PlantSession::TakeDefaultValue(std::string_view control, std::string_view value) {
  TimeControl* const found = outstation_->FindControl(control);
  if (found == nullptr || !IsPlainLine(value) || !IsPlantValue(value)) return Refuse();
  found->defaultValue = value;
  outstation_->changed = true;
  return Say("OK");
}

PlantReply PlantSession::Select(std::string_view selector) {
  selected_ = nullptr;
  const std::string part = LastPart(selector);
  const std::string_view name = selector.substr(0, selector.size() - part.size());
  const bool zek1 = outstation_->generation == Generation::Zek1;
  bool known = true;
  if (name.empty() && part == ".SDC") {
    selected_ = &outstation_->calendar;
    part_ = Part::Calendar;
  } else {
    known = zek1 ? name.empty() && SelectZek1(part) : SelectZek2(name, part);
  }
  if (!known) return Refuse();
  MakeRoom();
  return Say("OK");
}

bool PlantSession::SelectZek1(std::string_view part) {
  if (part != ".WDC" && part != ".OVC") return false;
  part_ = part == ".WDC" ? Part::Weekday : Part::Exceptions;
  selected_ = part == ".WDC" ? &outstation_->weekday : &outstation_->exceptions;
  return true;
}

bool PlantSession::SelectZek2(std::string_view control, std::string_view part) {
  TimeControl* const found = outstation_->FindControl(control);
  if (found == nullptr || (part != ".WDC" && part != ".EXC")) return false;
  part_ = part == ".WDC" ? Part::Weekday : Part::Exceptions;
  selected_ = part == ".WDC" ? &found->weekday : &found->exceptions;
  controlName_ = found->name;
  return true;
}

}  // namespace zek::sim
