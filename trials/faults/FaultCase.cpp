#include "faults/FaultCase.h"

#include <array>

namespace zek::faults {
namespace {

constexpr std::array<const char*, kFaults> kFaultNames = {"drop",         "lost behind the server",
                                                          "stall",        "garbage",
                                                          "ERROR",        "STX",
                                                          "half a line",  "flood",
                                                          "reset",        "late answer",
                                                          "character 0",  "character 2",
                                                          "character 3",  "character 23",
                                                          "character 255"};
constexpr std::array<const char*, 4> kTransportNames = {"TCP in pieces", "TCP with DUS", "DDE",
                                                        "tags"};
constexpr std::array<const char*, 3> kCatalogueNames = {"SDC", "WDC", "OVC"};

std::vector<Step> ReadSteps(bool hasDfv) {
  std::vector<Step> steps = {{"connect", kConnect},  {"link up", kLinkUp}, {"ENQ", 0},
                             {"list command", 1},    {"first line", 1, 1}, {"middle line", 1, 3},
                             {"EXIT", 1, kExitLine}, {"close", kClose}};
  if (hasDfv) steps.push_back({".DFV", 1, kDfvLine});
  return steps;
}

std::vector<Step> WriteSteps(bool hasDfv) {
  std::vector<Step> steps = {
      {"connect", kConnect}, {"link up", kLinkUp},      {"first EXIT", 0},
      {"second EXIT", 1},    {"selector", 2},           {"first line", 3},
      {"middle line", 5},    {"last line", 2 + kLines}, {"EXIT", 3 + kLines + (hasDfv ? 1 : 0)},
      {"close", kClose}};
  if (hasDfv) steps.push_back({".DFV=", 3 + kLines});
  return steps;
}

bool Applies(const FaultCase& each) {
  if (each.fault == Fault::Lost)
    return each.step.command >= 0 && each.step.command != kClose && !each.InListing();
  const bool slow = each.fault == Fault::Drop || each.fault == Fault::Stall;
  // A DDE link ends at once, and the calls of the tag object are synchronous.
  if (each.step.command == kClose && slow) return each.transport != Transport::Dde;
  if (each.step.command == kConnect && each.fault == Fault::Late) {
    return each.transport != Transport::Tags;
  }
  return true;
}

std::vector<FaultCase> Cases(bool write) {
  std::vector<FaultCase> cases;
  FaultCase each;
  each.write = write;
  for (const Catalogue catalogue : {Catalogue::Sdc, Catalogue::Wdc, Catalogue::Ovc}) {
    for (const Generation generation : {Generation::Zek1, Generation::Zek2}) {
      each.catalogue = catalogue;
      each.generation = generation;
      for (const Step& step : write ? WriteSteps(each.HasDfv()) : ReadSteps(each.HasDfv())) {
        each.step = step;
        for (int of = 0; of < 4 * kFaults * 2; ++of) {
          each.transport = static_cast<Transport>(of % 4);
          each.fault = static_cast<Fault>(of / 4 % kFaults);
          each.always = of / 4 / kFaults == 1;
          if (Applies(each)) cases.push_back(each);
        }
      }
    }
  }
  return cases;
}

}  // namespace

std::string FaultCase::Name() const {
  return std::string(write ? "write, " : "read, ") + step.name + ", " +
         kFaultNames.at(static_cast<std::size_t>(fault)) + ", " +
         kCatalogueNames.at(static_cast<std::size_t>(catalogue)) +
         (generation == Generation::Zek1 ? ", ZEK1, " : ", ZEK2, ") +
         kTransportNames.at(static_cast<std::size_t>(transport)) + (always ? ", always" : ", once");
}

std::vector<FaultCase> ReadCases() { return Cases(false); }
std::vector<FaultCase> WriteCases() { return Cases(true); }

}  // namespace zek::faults
