#!/usr/bin/env bash
# wine.sh COMMAND...: runs the command with the work tree's own Wine, on a virtual screen. The
# screen has a window manager, because dialogs open slowly without one. Ends all Wine processes
# afterwards.
set -euo pipefail

export WINEPREFIX="${WINEPREFIX:-$PWD/build/wine}" # may be deleted at any time
export WINEDEBUG=-all                    # Wine's own messages are not findings
export WINEDLLOVERRIDES="mscoree,mshtml=" # no questions about add-ons
export WINEARCH=win64
mkdir -p "$(dirname "$WINEPREFIX")"

if [[ ${1:-} == --inside ]]; then
  shift
  openbox &
  manager=$!
  trap 'kill "$manager" 2>/dev/null || true; wineserver -k 2>/dev/null || true; wineserver -w' EXIT
  [[ -f $WINEPREFIX/system.reg ]] || wineboot --init >/dev/null 2>&1
  "$@"
else
  exec scripts/headless.sh "$0" --inside "$@"
fi
