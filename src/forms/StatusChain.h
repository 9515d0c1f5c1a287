#pragma once

#include <functional>
#include <utility>

#include "comm/StatusPanels.h"
#include "ui/Forms.h"

namespace zek {

/// For its own life `show` is called soon after changes of the status, beside whoever was told
/// before; at most once a frame. It lives beside a form rather than in it, since a closed form may
/// be deleted later than all that it shows. Chains end in the reverse order of their beginning.
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
