#!/usr/bin/env bash
# fuzz.sh [SECONDS] [TARGET...]: runs the fuzz targets (default: all) under libFuzzer and the
# sanitizers, each for SECONDS (default: 10). Stores new inputs in build/fuzz/corpus and failing
# ones in build/fuzz/failed. Executions are counted per second of processor time, so that other work
# on the machine does not disturb the figure.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

least=20000 # executions a second
seconds=10
if [[ ${1:-} =~ ^[0-9]+$ ]]; then
  seconds="$1"
  shift
fi
targets=("$@")
if [[ $# -eq 0 ]]; then
  for folder in fuzz/corpus/*/; do targets+=("$(basename "$folder")"); done
fi

scripts/setup.sh run fuzz
configure fuzz OFF
cmake --build --preset fuzz --target zekview-fuzz

# Allocation stacks and a large quarantine would cost most of the time. Run a failing input again
# without these options to see them.
export ASAN_OPTIONS=malloc_context_size=0:quarantine_size_mb=1:detect_leaks=1
export UBSAN_OPTIONS=print_stacktrace=1
export ZEKVIEW_FUZZ_TARGET
mkdir -p build/fuzz/failed
TIMEFORMAT='processor %U'
failed=()
fast=0
for target in "${targets[@]}"; do
  [[ -d fuzz/corpus/$target ]] || die "There is no corpus fuzz/corpus/$target."
  ZEKVIEW_FUZZ_TARGET="$target"
  log="build/fuzz/$target.log"
  mkdir -p "build/fuzz/corpus/$target"
  case "$target" in # characters of an input
    weekday | calendar | exceptions | local-copies) longest=512 ;;
    *) longest=256 ;;
  esac
  status=0
  { time timeout "$((seconds + 120))" build/fuzz/bin/zekview-fuzz -max_total_time="$seconds" \
    -max_len="$longest" -timeout=5 -rss_limit_mb=1024 -print_final_stats=1 -verbosity=1 \
    -dict=fuzz/words.dict -artifact_prefix="build/fuzz/failed/$target-" \
    "build/fuzz/corpus/$target" "fuzz/corpus/$target" >"$log" 2>&1 </dev/null || status=$?; } 2>"$log.time"
  if [[ $status -ne 0 ]]; then
    failed+=("$target")
    grep -E '^(broken promise|SUMMARY|==.*ERROR|artifact_prefix)' "$log" || tail -n 5 "$log"
  fi
  executions="$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")"
  rate="$(awk -v n="${executions:-0}" '{ print ($2 > 0) ? int(n / $2) : 0 }' "$log.time")"
  if ((rate >= least)); then fast=$((fast + 1)); fi
  echo "figure: fuzzing $target: ${executions:-0} executions, $rate a second"
done
echo "figure: fuzz targets at $least executions a second: $fast of ${#targets[@]}"
echo "figure: fuzz targets without a finding: $((${#targets[@]} - ${#failed[@]})) of ${#targets[@]}"
[[ ${#failed[@]} -eq 0 ]] || die "Failed: ${failed[*]}; the inputs are in build/fuzz/failed."
