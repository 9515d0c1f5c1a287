#include <gtest/gtest.h>

#include "support/SessionPlayer.h"

namespace zek {
namespace {

TEST(CatalogueTransfers, Cases) {
  test::CheckCases("transfers.txt", [](const test::TextCase& given) {
    return test::SessionPlayer().PlayAll(given.given);
  });
}

TEST(CatalogueTransfers, LinesAreCountedOnScreen) {
  test::SessionPlayer session;
  std::string shown;
  session.proc.status.Changed = [&] {
    const std::string now =
        test::Filled(session.proc.status.Transfer + "," + session.proc.status.Waiting);
    if (!shown.ends_with(now + ";")) shown += now + ";";
  };
  session.PlayAll({"select ONE/AHU1",
                   "answer LIST WDC=HEADER/@300  1000 !x/@600  1001 !x/@700 !hangup",
                   "answer LIST WDC=EXIT/", "get WDC", "line  1000 !AHU1!x", "line  1001 !AHU1!x",
                   "yes", "save WDC"});
  for (const char* const part : {"kWaitListing 1;", "kWaitListing 2;", "kFetching (kAttempt 2)",
                                 "kSending,", "kSendingLine 1 2 6;", "kSendingLine 2 2 5;"})
    EXPECT_NE(shown.find(part), std::string::npos) << part << " in " << shown;
}

}  // namespace
}  // namespace zek
