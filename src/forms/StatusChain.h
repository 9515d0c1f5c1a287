#pragma once

#include <functional>
#include <utility>

#include "comm/StatusPanels.h"
#include "ui/Forms.h"

namespace zek {

/// While it exists, calls `show` soon after the status changes, at most once a frame, in addition
/// to the receivers registered before. Keep it outside the form: a closed form may be deleted after
/// the status it shows. Chains must be destroyed in reverse order of creation.
class StatusChain {
 public:
  StatusChain(StatusPanels& status, std::function<void()> show)
      : status_(status), before_(status.Changed), refresh_(std::move(show)) {
    status_.Changed = [this] {
      before_();
      refresh_.Request();
    };
  }
  StatusChain(const StatusChain&) = delete;
  StatusChain& operator=(const StatusChain&) = delete;
  ~StatusChain() { status_.Changed = std::move(before_); }

 private:
  StatusPanels& status_;
  std::function<void()> before_;
  FrameRefresh refresh_;
};

}  // namespace zek
