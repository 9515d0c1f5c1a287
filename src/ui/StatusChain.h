#pragma once

#include <functional>
#include <utility>

#include "comm/StatusPanels.h"

namespace zek {

/// For its own life a form is told of changes of the status too, beside whoever was told before.
/// Chains end in the reverse order of their beginning, as the forms that hold them do.
class StatusChain {
 public:
  StatusChain(StatusPanels& status, std::function<void()> changed)
      : status_(status), before_(status.Changed) {
    status_.Changed = [before = before_, changed = std::move(changed)] {
      before();
      changed();
    };
  }
  StatusChain(const StatusChain&) = delete;
  StatusChain& operator=(const StatusChain&) = delete;
  ~StatusChain() { status_.Changed = std::move(before_); }

 private:
  StatusPanels& status_;
  std::function<void()> before_;
};

}  // namespace zek
