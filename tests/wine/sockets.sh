#!/usr/bin/env bash
# The Windows command line program against the Windows plant over real sockets: the same script as
# elsewhere. Arguments: the folder of the programs, the data folder.
set -euo pipefail
programs="$(mktemp -d)"
trap 'rm -rf "$programs"' EXIT
for program in zekview-cli zekview-sim; do
  printf '#!/bin/sh\nexec wine "%s/%s.exe" "$@"\n' "$1" "$program" >"$programs/$program"
  chmod +x "$programs/$program"
done
tests/cli/real-sockets.sh "$programs" "$2"
