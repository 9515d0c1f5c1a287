#!/usr/bin/env bash
# sign.sh FILE...: signs programs and installers in place, with the command in
# ZEKVIEW_SIGN_COMMAND, which gets the path of one file. Without the variable, nothing is signed.
set -euo pipefail

[[ -n ${ZEKVIEW_SIGN_COMMAND:-} ]] || exit 0
for file in "$@"; do
  bash -c "$ZEKVIEW_SIGN_COMMAND \"\$1\"" sign "$(realpath "$file")"
done
