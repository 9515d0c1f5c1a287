#include "import/ImportFile.h"

#include "import/CsvDates.h"
#include "import/IcsDates.h"
#include "import/ImportText.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek {

ImportedDates ReadImportFile(std::string_view bytes, const ImportWindow& window,
                             const ImportClock& now) {
  constexpr std::string_view begin = "BEGIN:";
  bytes = WithoutUtf8Mark(bytes);
  if (ImportReason refused = CheckImportText(bytes)) return {std::move(refused), {}, {}};
  const std::size_t text = std::min(bytes.find_first_not_of("\r\n"), bytes.size());
  const bool isCalendar = EqualNoCase(bytes.substr(text, begin.size()), begin);
  return isCalendar ? ReadIcsDates(bytes, window, now) : ReadCsvDates(bytes, window);
}

}  // namespace zek
