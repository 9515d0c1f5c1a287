#include <gtest/gtest.h>
#include <memory>

#include "plan/ChangeEntry.h"
#include "plan/PlanRun.h"
#include "plan/PlanWords.h"
#include "plan/StartedNote.h"
#include "support/SessionPlayer.h"
#include "text/Fields.h"

namespace zek {
namespace {

// One change of several controls, as its window plays it. "entry
// KIND;DAYS;FROM;START;TO;STOP;VALUE; STOPVALUE;TYPE" adds a change and shows it in words, or what
// is wrong with it; "make NODE" plans the changes; "stop 500" cancels in so many milliseconds;
// "restart" begins anew with the disk as it is; "keep", "drop", "open", "take", "give-up" and
// "send" are those of `PlanRun`.
class SeveralPlayer : public test::SessionPlayer {
 public:
  SeveralPlayer() {
    proc.texts =
        test::NamedTexts("1296=unchanged;change;refused;done;already;stale;failed;untried\r\n");
  }

 protected:
  std::string Do(const std::string& what, const std::string& rest) override {
    if (what == "entry") return Enter(rest);
    if (what == "restart") run_ = std::make_unique<PlanRun>(proc, [] {});
    if (what == "stop") {
      turn.After(std::stoi(rest), [this] {
        run_->Cancel();
        proc.waits.Cancel();
      });
    }
    if (what == "make") run_->Make(changes_, {rest});
    if (what == "keep") return run_->Keep() + "kept";
    if (what == "drop") run_->Drop();
    if (what == "open") {
      std::string open = "open:";
      for (const std::string& name : run_->OpenPlans()) open += " " + PlanRun::TimeOf(name);
      return open;
    }
    if (what == "take") return After(run_->Take(Open()));
    if (what == "give-up")
      return Shown(test::Filled(run_->GiveUp(rest.empty() ? Open() : rest))) + "given up";
    if (what == "send") return After(run_->Send());
    return what == "make" ? LinesOf() : SessionPlayer::Do(what, rest);
  }

 private:
  std::string Open() const {
    const std::vector<std::string> open = run_->OpenPlans();
    return open.empty() ? "none" : open.front();
  }

  std::string Enter(const std::string& fields) {
    const auto field = [&fields](std::size_t at) { return std::string(GetField(fields, at, ";")); };
    ChangeEntry entry;
    entry.kind = static_cast<ChangeKind>(std::stoi(field(0)));
    for (const char day : field(1)) entry.days.push_back(static_cast<std::size_t>(day - 'a'));
    entry.firstDate = field(2);
    entry.start = field(3);
    entry.lastDate = field(4);
    entry.stop = field(5);
    entry.value = field(6);
    entry.stopValue = field(7);
    entry.type = static_cast<std::int16_t>(field(8).empty() ? 8 : std::stoi(field(8)));
    const EnteredChange entered =
        EnterChange(entry, {"TXI_1", {{"Dag", "20.5"}, {"Natt", "16"}}, 0}, proc.texts);
    if (!entered.change)
      return std::to_string(static_cast<int>(entered.wrong)) + ": " + test::Filled(entered.why);
    changes_.push_back(*entered.change);
    return ChangeInWords(*entered.change, proc.texts, {}, '.');
  }

  std::string After(const std::string& why) { return test::Filled(why) + LinesOf(); }
  std::string LinesOf() {
    std::string shown;
    for (const PlanLine& line : run_->Lines()) {
      shown += "[" + line.node + " " + test::Filled(CatalogueOf(line, proc.texts)) + " " +
               ResultOf(line, proc.texts) + " " + Shown(test::Filled(RemarkOf(line, proc.texts))) +
               "]";
    }
    return shown + " of " + std::to_string(run_->Total()) + ", changed " +
           std::to_string(run_->Changed()) + Told() + Got();
  }

  std::vector<ListedChange> changes_;
  std::unique_ptr<PlanRun> run_ = std::make_unique<PlanRun>(proc, [] {});
};

TEST(Several, Cases) {
  test::CheckCases("several.txt", [](const test::TextCase& given) {
    return SeveralPlayer().PlayAll(given.given);
  });
}

TEST(Several, DurationsInWords) {
  for (const auto& [seconds, words] : {std::pair(59, "59 s"),
                                       {60, "1 min 0 s"},
                                       {3599, "59 min 59 s"},
                                       {3600, "1 h 0 min"},
                                       {7379, "2 h 2 min"}})
    EXPECT_EQ(DurationText(seconds), words);
}

TEST(Several, BegunCataloguesAreReadBackWithTheirLines) {
  test::MemoryFiles files;
  PlannedCatalogue one;
  one.topic = "ONE";
  PlannedCatalogue two = one;
  two.kind = Catalogue::Ovc;
  StartedNote note(files, "/zek/P", "1");
  EXPECT_FALSE(note.Begin(one, {"a", "b"}));
  EXPECT_FALSE(note.Begin(two, {}));
  const StartedNote read(files, "/zek/P", "1");
  ASSERT_TRUE(read.Before(one) != nullptr && read.Before(two) != nullptr);
  EXPECT_EQ(*read.Before(one), (StartedNote::Lines{"a", "b"}));
  EXPECT_EQ(*read.Before(two), StartedNote::Lines());
}

}  // namespace
}  // namespace zek
