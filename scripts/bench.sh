#!/usr/bin/env bash
# bench.sh [OPTION...]: runs the program zekview-bench with these options, then the benchmark
# scripts bench/*.sh, each on its own screen. At the end prints all figures with a limit in one
# table. Fails if a limit is exceeded.
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
