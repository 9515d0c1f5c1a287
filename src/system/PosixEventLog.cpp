#include <syslog.h>

#include "system/EventLog.h"

namespace zek {

bool RecordEvent(bool succeeded, const std::string& report) {
  std::string line;  // a line end would be shown as its code
  for (const char character : report) {
    if (character == '\n') line += "; ";
    if (static_cast<unsigned char>(character) >= ' ') line += character;
  }
  ::openlog("zekview", LOG_PID, LOG_USER);
  // NOLINTNEXTLINE(*-vararg)
  ::syslog(succeeded ? LOG_INFO : LOG_ERR, "%s", line.c_str());
  ::closelog();
  return true;
}

}  // namespace zek
