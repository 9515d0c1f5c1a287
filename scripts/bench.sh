#!/usr/bin/env bash
# bench.sh [OPTION...]: the benchmarks in the program zekview-bench, with these options, and then
# those that are scripts, bench/*.sh, each with a screen of its own.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

scripts/build.sh
scripts/headless.sh build/bin/zekview-bench "$@"
failed=()
for script in bench/*.sh; do
  [[ -x $script ]] || continue
  echo
  echo "== $script"
  scripts/headless.sh "$script" || failed+=("$script")
done
[[ ${#failed[@]} -eq 0 ]] || die "Failed: ${failed[*]}"
