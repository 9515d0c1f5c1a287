#!/usr/bin/env bash
# startup.sh: measures the time from the start of zekview to its first frame, and its memory a
# moment later. Compares both with a minimal program: a window with a list.
set -euo pipefail
# shellcheck source=bench/common.sh
source bench/common.sh
trap end_started EXIT

starts="${1:-21}"
memory_runs=3
limit=1.25
memory_limit=1.25
program_directory="$bench_directory/startup"
mkdir -p "$program_directory"
cp data/lang/zek_lang.* data/demo/ZEKView.INI "$program_directory/"

# measure SECONDS COMMAND...: sets `milliseconds` to the first frame, and `kilobytes` after SECONDS.
measure() {
  local seconds="$1" pid probe
  shift
  exec {probe}< <(exec build/bin/zekview-window-probe first-frame "$@")
  read -r milliseconds pid <&"$probe" || die "No window: $*"
  started=("$pid")
  sleep "$seconds"
  # Not PSS: it depends on which other programs use the same libraries.
  kilobytes="$(awk '/^VmRSS:/ { print $2 }' "/proc/$pid/status")"
  kill "$pid"
  started=()
  read -r <&"$probe" || true # until it has ended
  exec {probe}<&-
}

minimal=("$PWD/build/bin/zekview-minimal-window")
zekview=("$PWD/build/bin/zekview" --dir "$program_directory")
measure 1 "${minimal[@]}" # the first run fills caches for the later ones
ours=() our_memory=() theirs=() their_memory=()
for ((run = 0; run < starts; ++run)); do
  measure 0.2 "${minimal[@]}"
  theirs+=("$milliseconds")
  measure 0.2 "${zekview[@]}"
  ours+=("$milliseconds")
done
for ((run = 0; run < memory_runs; ++run)); do
  measure 1.5 "${minimal[@]}"
  their_memory+=("$kilobytes")
  measure 1.5 "${zekview[@]}" # the about box has opened
  our_memory+=("$kilobytes")
done
echo "First frame (ms): zekview ${ours[*]}; minimal window ${theirs[*]}"
echo "Memory (RSS, kB): zekview ${our_memory[*]}; minimal window ${their_memory[*]}"
verdict "first frame / minimal wxWidgets window" \
  "$(ratio "$(fastest "${ours[@]}")" "$(fastest "${theirs[@]}")")" "$limit"
verdict "memory / minimal wxWidgets window" \
  "$(ratio "$(median "${our_memory[@]}")" "$(median "${their_memory[@]}")")" "$memory_limit"
exit "$exceeded"
