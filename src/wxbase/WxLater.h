#pragma once

#include <functional>

#include <wx/event.h>

#include "system/Later.h"

namespace zek {

/// Posts calls to the event loop as long as it lives; what is still posted then never runs.
class WxLater {
 public:
  Later Post() {
    return [this](const std::function<void()>& call) { handler_.CallAfter(call); };
  }

 private:
  wxEvtHandler handler_;
};

}  // namespace zek
