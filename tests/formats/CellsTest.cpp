#include <gtest/gtest.h>

#include "formats/ExceptionCells.h"
#include "formats/WeekdayCells.h"
#include "support/CaseFile.h"

namespace zek {
namespace {

// Each typed text and its result.
TEST(Cells, Cases) {
  test::CheckCases("cells.txt", [](const test::TextCase& given) {
    std::string outcome;
    for (const std::string& typed : given.given) {
      std::optional<std::string> shown;
      if (given.head == "weekday time") {
        if (const auto time = TypedTime(typed)) shown = TimeText(*time);
      } else if (given.head == "exception time") {
        if (const auto time = TypedExceptionTime(typed)) shown = std::to_string(*time);
      } else if (const auto date = TypedExceptionDate(typed)) {
        shown = DateText(*date);
      }
      outcome += typed + " gives " + shown.value_or("nothing") + "\n";
    }
    return outcome;
  });
}

}  // namespace
}  // namespace zek
