#!/usr/bin/env bash
# test-windows.sh [FILTER]: builds the Windows programs and runs their tests under Wine: unit tests,
# window tests and tests of whole programs (windows-programs.sh). Many tests share a process,
# because starting Wine takes longer than most tests. FILTER selects the tests whose names contain
# it. The last line is "N passed, N failed".
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

filter="${1:-}"
[[ $filter != -* ]] || die "./dev test --windows has no option '$filter'."
bin="$PWD/build/win64/bin"
reports="$PWD/build/win64/reports"

# run_programs: runs everything under Wine; this script calls itself for it inside scripts/wine.sh.
run_programs() {
  local program suite core
  # The core opens no window and no conversation, so its tests run beside all others.
  program=zekview-tests
  run_program "$program" "*$filter*" "$program" >"$reports/$program.log" 2>&1 &
  core=$!
  program=zekview-windows-tests
  run_program "$program" "*$filter*" "$program"
  # Window tests must not inherit keys and focus from earlier ones. A process for each test would
  # take too long here, so each suite has one.
  program=zekview-window-tests
  if [[ -n $filter ]]; then
    run_program "$program" "*$filter*" "$program"
  else
    while read -r suite; do
      run_program "$program" "$suite*" "$program-${suite//[!A-Za-z]/}"
    done < <(wine "$bin/$program.exe" --gtest_list_tests </dev/null | tr -d '\r' | grep -E '^[^ ]+\.$|^[^ ]+\.  #' | cut -d. -f1 | sed 's/$/./')
  fi
  run_scripts
  wait "$core"
  cat "$reports/zekview-tests.log"
}

# run_program NAME FILTER REPORT
run_program() {
  [[ -f $bin/$1.exe ]] || return 0
  echo "== $1 $2"
  : >"$reports/$3.xml" # what leaves no report has failed
  timeout 600 wine "$bin/$1.exe" --gtest_brief=1 --gtest_filter="$2" \
    --gtest_output="xml:Z:$reports/$3.xml" </dev/null || echo "$1 ended with $?"
}

run_scripts() {
  local name log status
  {
    echo '<testsuite name="wine">'
    for name in desktop dde tags package installer sockets; do
      [[ wine.$name == *"$filter"* ]] || continue
      log="$reports/$name.log" status=0
      echo "== wine.$name" >&2
      timeout 600 scripts/windows-programs.sh "$name" </dev/null >"$log" 2>&1 || status=$?
      if [[ $status -eq 0 ]]; then
        echo "<testcase name=\"wine.$name\" status=\"run\"/>"
      else
        tail -n 40 "$log" >&2
        echo "<testcase name=\"wine.$name\" status=\"run\"><failure message=\"$status\"/></testcase>"
      fi
    done
    echo '</testsuite>'
  } >"$reports/scripts.xml"
}

if [[ -n ${ZEKVIEW_INSIDE_WINE:-} ]]; then
  run_programs
  exit
fi

counts="0 passed, 1 failed" # printed if the script fails before the tests run
trap 'echo "$counts"' EXIT
scripts/setup.sh run screen test windows
configure win64
cmake --build --preset win64
rm -rf "$reports"
mkdir -p "$reports"
ZEKVIEW_INSIDE_WINE=1 scripts/wine.sh "$0" "$filter" || true # the reports contain the failures
status=0
wanted=("$reports/scripts.xml")
for program in zekview-tests zekview-windows-tests zekview-window-tests; do
  [[ -f $bin/$program.exe ]] || continue
  reported=("$reports/$program"*.xml)
  wanted+=("${reported[@]}") # without a report this is the pattern itself, which counts as a failure
done
counts="$(scripts/test-counts.py "${wanted[@]}")" || status=1
exit "$status"
