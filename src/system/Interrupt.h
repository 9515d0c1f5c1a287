#pragma once

namespace zek {

/// From now on Ctrl+C, a request to terminate and a lost terminal (SIGINT, SIGTERM, SIGHUP) no
/// longer end the program at once, but every wait of it (see `WxTurn`), so that it can put its
/// files in order. A second one of the same kind ends it at once.
void CatchInterrupts();

/// One of them has come.
bool Interrupted();

}  // namespace zek
