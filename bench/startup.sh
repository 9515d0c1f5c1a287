#!/usr/bin/env bash
# startup.sh: from the start of zekview to its first frame, and its memory a moment later, beside a
# program that is nothing but a window with a list.
set -euo pipefail
# shellcheck source=bench/common.sh
source bench/common.sh
trap end_started EXIT

runs="${1:-9}"
limit=1.25
program_directory="$bench_directory/startup"
mkdir -p "$program_directory"
cp data/lang/zek_lang.* data/demo/ZEKView.INI "$program_directory/"

# measure COMMAND...: sets `milliseconds` and `kilobytes`.
measure() {
  local pid probe
  exec {probe}< <(exec build/bin/zekview-window-probe first-frame "$@")
  read -r milliseconds pid <&"$probe" || die "No window: $*"
  started=("$pid")
  sleep 1.5 # the about box has come and gone
  # Not PSS, of which other programs on the machine that use the same libraries take their share.
  kilobytes="$(awk '/^VmRSS:/ { print $2 }' "/proc/$pid/status")"
  kill "$pid"
  started=()
  read -r <&"$probe" || true # until it is gone
  exec {probe}<&-
}

minimal=("$PWD/build/bin/zekview-minimal-window")
zekview=("$PWD/build/bin/zekview" --dir "$program_directory")
measure "${minimal[@]}" # the first one on a screen finds things out for all others
ours=() our_memory=() theirs=() their_memory=()
for ((run = 0; run < runs; ++run)); do
  measure "${minimal[@]}"
  theirs+=("$milliseconds") their_memory+=("$kilobytes")
  measure "${zekview[@]}"
  ours+=("$milliseconds") our_memory+=("$kilobytes")
done
echo "First frame (ms): zekview ${ours[*]}; minimal window ${theirs[*]}"
echo "Memory (RSS, kB): zekview ${our_memory[*]}; minimal window ${their_memory[*]}"
verdict "first frame / minimal wxWidgets window" \
  "$(ratio "$(fastest "${ours[@]}")" "$(fastest "${theirs[@]}")")" "$limit"
verdict "memory / minimal wxWidgets window" \
  "$(ratio "$(median "${our_memory[@]}")" "$(median "${their_memory[@]}")")" "$limit"
exit "$exceeded"
