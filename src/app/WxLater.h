#pragma once

#include <functional>
#include <utility>

#include <wx/event.h>

#include "comm/Later.h"

namespace zek {

/// Posts calls to the event loop as long as it lives; what is still posted then never runs.
class WxLater {
 public:
  Later Post() {
    return [this](std::function<void()> call) { handler_.CallAfter(std::move(call)); };
  }

 private:
  wxEvtHandler handler_;
};

}  // namespace zek
