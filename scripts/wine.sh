#!/usr/bin/env bash
# wine.sh COMMAND...: runs it where Windows programs can be run: with a Wine of the work tree's own,
# on a screen of its own with a window manager, without which dialogs open slowly. What of Wine is
# still running afterwards is ended.
set -euo pipefail

export WINEPREFIX="${WINEPREFIX:-$PWD/build/wine}" # a fresh one does as well
export WINEDEBUG=-all                    # its own remarks are no findings
export WINEDLLOVERRIDES="mscoree,mshtml=" # nor its questions about add-ons
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
