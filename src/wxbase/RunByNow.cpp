#include "wxbase/RunByNow.h"

#include <string>

#include <wx/utils.h>

#include "system/Process.h"
#include "text/Windows1252.h"

namespace zek {

RunBy RunByNow() {
  const std::string computer = wxGetHostName().utf8_string();
  return {Windows1252FromUtf8(UserName()), Windows1252FromUtf8(computer),
          std::to_string(wxGetProcessId())};
}

}  // namespace zek
