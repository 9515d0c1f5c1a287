#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <numeric>
#include <random>

#include "faults/Dialogue.h"
#include "support/SourceTree.h"

namespace zek::faults {
namespace {

constexpr std::size_t kCutsAtOnce = 5;

// ZEKVIEW_CUTS: the number of random cuts in all dialogues together.
std::size_t RandomCuts() {
#ifdef __SANITIZE_ADDRESS__
  constexpr std::size_t kEnough = 2'000;
#else
  constexpr std::size_t kEnough = 20'000;
#endif
  const char* const cuts = std::getenv("ZEKVIEW_CUTS");
  return cuts == nullptr ? kEnough : std::strtoul(cuts, nullptr, 10);
}

std::vector<std::size_t> EveryPlace(std::size_t bytes) {
  std::vector<std::size_t> places(bytes);
  std::iota(places.begin(), places.end(), 0);
  return places;
}

// The number of replays, and how many gave the same result as the uncut one.
struct Count {
  std::size_t same = 0;
  std::size_t all = 0;
};

void Check(Replay& replay, const Outcome& whole, const std::vector<std::size_t>& cuts,
           const std::string& name, Count& count) {
  const bool same = replay.Run(cuts) == whole;
  EXPECT_TRUE(same) << name << " cut at " << testing::PrintToString(cuts);
  count.same += same ? 1U : 0U;
  ++count.all;
}

TEST(Cutting, GivesTheSameLinesLogAndValueEverywhere) {
  const std::vector<Dialogue> dialogues = LoadDialogues(test::SourceTree() + "/trials/dialogues");
  ASSERT_GE(dialogues.size(), 12U);
  Count everywhere;
  Count bytewise;
  Count random;
  std::mt19937 generator(1);  // NOLINT(cert-msc51-cpp): the same places every time
  for (const Dialogue& each : dialogues) {
    Replay replay(each);
    const Outcome whole = replay.Run({});
    EXPECT_EQ(whole.astray, "") << each.name;
    EXPECT_EQ(whole.result, each.result) << each.name;
    EXPECT_EQ(whole.value, each.value) << each.name;
    EXPECT_EQ(whole.lines, each.lines) << each.name;
    const std::vector<std::size_t> places = EveryPlace(each.AnswerBytes());
    for (const std::size_t place : places) Check(replay, whole, {place}, each.name, everywhere);
    Check(replay, whole, places, each.name, bytewise);
    const std::size_t runs = RandomCuts() / kCutsAtOnce / dialogues.size() + 1;
    for (std::size_t run = 0; run < runs; ++run) {
      std::vector<std::size_t> cuts;
      std::sample(places.begin(), places.end(), std::back_inserter(cuts), kCutsAtOnce, generator);
      Check(replay, whole, cuts, each.name, random);
    }
  }
  std::cout << "figure: dialogues cut at every byte: " << everywhere.same << " of "
            << everywhere.all << "\nfigure: dialogues byte by byte: " << bytewise.same << " of "
            << bytewise.all
            << "\nfigure: dialogues cut at random places: " << random.same * kCutsAtOnce << " of "
            << random.all * kCutsAtOnce << "\n";
}

}  // namespace
}  // namespace zek::faults
