#include <gtest/gtest.h>

#include "catalogue/Sendable.h"
#include "support/CaseFile.h"

namespace zek {
namespace {

TEST(CommandText, Cases) {
  test::CheckCases("command-texts.txt", [](const test::TextCase& given) {
    std::string outcome;
    for (const std::string& line : given.given) {
      const bool good = given.head == "catalogue line" ? IsCatalogueLine(line)
                                                       : StaysOneCommand(line, given.head == "DDE");
      outcome += good ? "yes\n" : "no\n";
    }
    return outcome;
  });
}

}  // namespace
}  // namespace zek
