#include "formats/ExceptionOptions.h"

namespace zek {

std::optional<ExceptionOptions> ReadExceptionOptions(const NumberReader& numbers,
                                                     Generation generation) {
  const bool modern = generation == Generation::Zek2;
  const std::string_view section = modern ? "SaveOptionsZEK2" : "SaveOptionsZEK1";
  const auto startRow = numbers.Read(section, "OVCStartRow", "1");
  if (!startRow) return std::nullopt;
  const auto multiplyPlt = numbers.Read(section, "OVCMultiplyPLT", modern ? "0" : "100");
  if (!multiplyPlt) return std::nullopt;
  return ExceptionOptions{*startRow, *multiplyPlt};
}

}  // namespace zek
