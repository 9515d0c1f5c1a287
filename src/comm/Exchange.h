#pragma once

#include "comm/Connection.h"
#include "comm/Countdowns.h"
#include "comm/StatusPanels.h"
#include "comm/Transfer.h"

namespace zek {

/// What a dialogue with a controller works with, and shows of itself.
struct Exchange {
  Connection& connection;
  Transfer& transfer;
  Countdowns& countdowns;
  Waits& waits;
  StatusPanels& status;
};

}  // namespace zek
