#!/usr/bin/env bash
# bench.sh [OPTION...]: the benchmarks in the program zekview-bench, with these options, and then
# those that are scripts, bench/*.sh, each with a screen of its own. What has a limit stands once
# more in the end, in one table; a limit that is exceeded is a failure.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

scripts/setup.sh screen
scripts/build.sh
log=build/bench.log
failed=()
: >"$log"
run() {
  echo "== $1"
  "${@:2}" 2>&1 | tee -a "$log" || failed+=("$1")
  echo
}
run zekview-bench build/bin/zekview-bench "$@"
for script in bench/*.sh; do
  if [[ -x $script ]]; then run "$script" scripts/headless.sh "$script"; fi
done
echo "== Limits"
grep -F ' (limit ' "$log" || true
[[ ${#failed[@]} -eq 0 ]] || die "Failed: ${failed[*]}"
