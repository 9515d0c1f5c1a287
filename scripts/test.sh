#!/usr/bin/env bash
# test.sh [--asan|--debug] [FILTER]: builds the tests and runs them on a virtual screen. The last
# line is "N passed, N failed"; it is a failure if no test runs. With --windows as the first
# argument, runs the tests of the Windows programs (test-windows.sh).
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

if [[ ${1:-} == --windows ]]; then exec scripts/test-windows.sh "${@:2}"; fi

preset=release
filter=()
for argument in "$@"; do
  case "$argument" in
    --asan | --debug) preset="${argument#--}" ;;
    -*) die "./dev test has no option '$argument'." ;;
    *) filter=(--tests-regex "$argument") ;;
  esac
done

counts="0 passed, 1 failed"  # printed if the script fails before the tests run
trap 'echo "$counts"' EXIT

scripts/setup.sh screen
scripts/build.sh "$preset"

if [[ $preset == asan ]]; then
  export ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1
  export LSAN_OPTIONS="suppressions=$PWD/scripts/lsan.supp:print_suppressions=0"
  export UBSAN_OPTIONS=print_stacktrace=1
fi

report="$PWD/build/$preset/tests.xml"
rm -f "$report"
status=0
scripts/headless.sh ctest --test-dir "build/$preset" --output-on-failure --no-tests=error \
  --parallel "$(nproc)" --timeout 900 --output-junit "$report" "${filter[@]}" </dev/null ||
  status=$?
counts="$(scripts/test-counts.py "$report")" || status=1
[[ $status -eq 0 || $counts != *" 0 failed" ]] || counts="${counts% 0 failed} 1 failed"
exit "$status"
