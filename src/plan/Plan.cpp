#include "plan/Plan.h"

#include <algorithm>
#include <array>

#include "catalogue/CatalogueFetch.h"
#include "catalogue/CatalogueSend.h"
#include "text/Controls.h"

namespace zek {

int PlanSeconds(const Plan& plan, const NumberReader& numbers) {
  // A shared catalogue is fetched when its turn comes, before it is sent, and afterwards.
  constexpr int fetches = 2;
  constexpr int sharedFetches = 3;
  const FetchDelays delays = ReadFetchDelays(numbers).value_or(FetchDelays());
  const int fetch = delays.a + delays.b + delays.d;
  int seconds = 0;
  for (const PlannedCatalogue& each : plan.catalogues) {
    seconds += SendSeconds(numbers, each.linesToSend);
    seconds += fetch * (each.IsShared() ? sharedFetches : fetches);
  }
  return seconds;
}

std::string_view TextOf(PlanWord word) {
  constexpr std::array<std::string_view, 8> texts = {"unchanged", "change", "refused", "done",
                                                     "already",   "stale",  "failed",  "untried"};
  return texts.at(static_cast<std::size_t>(word));
}

std::string PlanLine::Text() const {
  std::string text(TextOf(word));
  text.append("\t").append(node).append("\t").append(kind.empty() ? "-" : kind);
  if (word == PlanWord::Change) {
    text.append("\t+").append(std::to_string(added)).append("\t-").append(std::to_string(removed));
    if (!controls.empty()) text.append("\t").append(controls);
  }
  if (!why.empty()) {
    std::string shown = why;
    ShowControls(shown);
    text.append("\t").append(shown);
  }
  return text;
}

std::string KindText(Catalogue kind) {
  std::string text(KindOf(kind).name);
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return static_cast<char>(c - 'A' + 'a'); });
  return text;
}

}  // namespace zek
