#!/usr/bin/env bash
# reliability.sh [NAME...]: measures the figures of docs/reliability.md, all of them or only the
# named parts, and prints each as "WHAT: N of N". Measuring everything takes most of an hour.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

all=(faults saving history sending undo re-entry intrusion soak living-window round-trips
  forecast report plan fuzz mutants)
bin=build/bin
log=build/reliability.log

tests() { "$bin/zekview-tests" --gtest_filter="$1"; }
windows() { scripts/headless.sh "$bin/zekview-window-tests" --gtest_filter="$1"; }

measure() {
  export ZEKVIEW_FULL=1 ZEKVIEW_FLOOD=20000000 ZEKVIEW_CUTS=100000  # the tests do less by default
  case "$1" in
    faults) tests 'Faults.*:Cutting.*:*SharedSaves.*' ;;
    saving) "$bin/zekview-file-tests" ;;
    history) tests '*History*:-Undo*' ;;
    sending) tests '*Changes*:*Send*' ;;
    undo) tests '*Undo*' && windows '*EditorForm*' ;;
    re-entry) tests '*Reentry*' && windows '*WindowReentry*' ;;
    intrusion)
      tests 'Password.*:*EveryByte*' && windows '*EveryByte*' && "$bin/zekview-peer-cost" &&
        measure/greedy-peers.py "$bin" data 1024 &&
        scripts/headless.sh measure/network-calls.py "$bin" data
      ;;
    soak) scripts/soak.sh ;;
    living-window) scripts/headless.sh measure/living-window.py "$bin" data ;;
    round-trips) "$bin/zekview-round-trips" 1000000 ;;
    forecast) tests 'Forecast.*' ;;
    report) scripts/setup.sh report && scripts/headless.sh measure/report-pages.py "$bin" data ;;
    plan) tests '*PlanTrial*' ;;
    fuzz) scripts/fuzz.sh 10 ;;
    mutants) scripts/mutants.sh 300 "${ZEKVIEW_SEED:-2}" ;;
    *) die "./dev reliability has no part '$1'. The parts are: ${all[*]}." ;;
  esac
}

# figures LOG PART: prints the figures of a part; for tests without figures, how many passed.
figures() {
  sed -n 's/^figure: //p' "$1"
  awk -v part="$2" '/^\[==========\] [0-9]+ tests? from .* ran/ { ran += $2 }
    /^\[  PASSED  \]/ { passed += $4 } /^figure: / { figures = 1 }
    END { if (ran && !figures) print part ": " passed " of " ran " tests" }' "$1"
}

[[ $# -gt 0 ]] || set -- "${all[@]}"
scripts/setup.sh screen
scripts/build.sh
cmake --build --preset release --target zekview-measure
: >"$log"
status=0
for part in "$@"; do
  measure "$part" </dev/null >"$log.part" 2>&1 || {
    status=1
    echo "$part: failed, see $log"
  }
  figures "$log.part" "$part"
  cat "$log.part" >>"$log"
done
rm -f "$log.part"
exit "$status"
