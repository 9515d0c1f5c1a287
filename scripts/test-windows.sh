#!/usr/bin/env bash
# test-windows.sh [FILTER]: builds the Windows programs and runs their tests under Wine: the unit
# tests and the window tests, each in one process, since a start of Wine takes longer than most
# tests, and the scripts tests/wine/*.sh. With FILTER only those whose name holds it. The last line
# is "N passed, N failed".
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

filter="${1:-}"
[[ $filter != -* ]] || die "./dev test --windows knows no option '$filter'."
bin="$PWD/build/win64/bin"
reports="$PWD/build/win64/reports"

# run_programs: all that runs under Wine; called by this script itself, inside scripts/wine.sh.
run_programs() {
  local program
  for program in zekview-tests zekview-windows-tests zekview-window-tests; do
    [[ -f $bin/$program.exe ]] || continue
    echo "== $program"
    timeout 900 wine "$bin/$program.exe" --gtest_brief=1 --gtest_filter="*$filter*" \
      --gtest_output="xml:Z:$reports/$program.xml" </dev/null || echo "$program ended with $?"
  done
  run_scripts
}

# Each script is a test; it gets the directory of the programs.
run_scripts() {
  local script name log status
  {
    echo '<testsuite name="wine">'
    for script in tests/wine/*.sh; do
      name="$(basename "$script" .sh)"
      [[ wine.$name == *"$filter"* && -x $script ]] || continue
      log="$reports/$name.log" status=0
      echo "== wine.$name" >&2
      timeout 600 "$script" "$bin" "$PWD/data" </dev/null >"$log" 2>&1 || status=$?
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

counts="0 passed, 1 failed" # unless the tests say otherwise
trap 'echo "$counts"' EXIT
scripts/setup.sh scripts/packages-windows.txt
configure win64
cmake --build --preset win64
rm -rf "$reports"
mkdir -p "$reports"
ZEKVIEW_INSIDE_WINE=1 scripts/wine.sh "$0" "$filter" || true # the reports tell
status=0
wanted=("$reports/scripts.xml")
for program in zekview-tests zekview-windows-tests zekview-window-tests; do
  if [[ -f $bin/$program.exe ]]; then wanted+=("$reports/$program.xml"); fi
done
counts="$(scripts/test-counts.py "${wanted[@]}")" || status=1
exit "$status"
