#include "forecast/Rule.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "text/Fields.h"

namespace zek {
namespace {

struct RuleSwitch {
  bool Rule::*on;
  std::string_view name;
  std::string_view whenOff;
  std::string_view whenOn;
};

constexpr auto kSwitches = std::to_array<RuleSwitch>({
    {&Rule::exceptionsCommand, "exception", "mask", "command"},
    {&Rule::daysBeginAnew, "carry", "yes", "no"},
    {&Rule::missingStopsHold, "nostop", "default", "hold"},
    {&Rule::earlyStopsNextDay, "early", "same", "next"},
});

bool SetOne(Rule& rule, std::string_view text) {
  const std::string_view name = text.substr(0, text.find('='));
  const auto* const found =
      std::find_if(kSwitches.begin(), kSwitches.end(),
                   [name](const RuleSwitch& each) { return each.name == name; });
  if (found == kSwitches.end() || name.size() == text.size()) return false;
  const std::string_view value = text.substr(name.size() + 1);
  if (value != found->whenOff && value != found->whenOn) return false;
  rule.*found->on = value == found->whenOn;
  return true;
}

}  // namespace

std::string Rule::Text() const {
  std::string text;
  for (const RuleSwitch& each : kSwitches) {
    if (!text.empty()) text += ',';
    text.append(each.name).append("=").append(this->*each.on ? each.whenOn : each.whenOff);
  }
  return text;
}

bool Rule::Set(std::string_view switches) {
  Rule changed = *this;
  const auto count = static_cast<std::size_t>(std::count(switches.begin(), switches.end(), ','));
  for (std::size_t at = 0; at <= count; ++at) {
    if (!SetOne(changed, GetField(switches, at, ","))) return false;
  }
  *this = changed;
  return true;
}

std::vector<Rule> Rule::Variants() {
  std::vector<Rule> variants(std::size_t{1} << kSwitches.size());
  for (std::size_t number = 0; number < variants.size(); ++number) {
    for (std::size_t at = 0; at < kSwitches.size(); ++at) {
      variants[number].*kSwitches.at(kSwitches.size() - 1 - at).on = (number >> at & 1U) != 0;
    }
  }
  return variants;
}

}  // namespace zek
