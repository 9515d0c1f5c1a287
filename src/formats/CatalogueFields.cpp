#include "formats/CatalogueFields.h"

#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {

float ReadValue(std::string_view field) {
  field = Trim(field);
  return field == kNoValueText ? kNoValue : ToSingle(ParseNumber(field));
}

std::string LineValue(float value, char decimalSeparator) {
  return value == kNoValue ? std::string(kNoValueText) : FormatNumber(value, decimalSeparator);
}

std::string BoxValue(float value, char decimalSeparator) {
  return value == kNoValue ? std::string() : FormatNumber(value, decimalSeparator);
}

}  // namespace zek
