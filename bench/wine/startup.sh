#!/usr/bin/env bash
# startup.sh: measures the size of the Windows desktop program, the time to its first window, and
# its memory a moment later. Compares them with a minimal program, a window with a list, built the
# same way. Under Wine only the comparison is meaningful, not the times themselves. Not part of
# "./dev bench", because it needs the programs that "./dev test --windows" builds.
set -euo pipefail
if [[ -z ${WINEPREFIX:-} ]]; then exec scripts/wine.sh "$0" "$@"; fi
# shellcheck source=bench/common.sh
source bench/common.sh
unset TMPDIR # Wine finds its server by it; use the server of scripts/wine.sh
trap end_started EXIT

bin="$PWD/build/win64/bin"
starts="${1:-21}"
start_limit=1.3
size_limit=2
program_directory="$bench_directory/windows"
mkdir -p "$program_directory"
cp data/lang/zek_lang.* data/demo/ZEKView.INI "$program_directory/"

# stripped_size PROGRAM: prints the size in bytes
stripped_size() {
  x86_64-w64-mingw32-strip -o "$bench_directory/stripped.exe" "$bin/$1.exe"
  stat -c %s "$bench_directory/stripped.exe"
}

# measure TITLE COMMAND...: sets `milliseconds` to the visible window, `kilobytes` a second after.
measure() {
  local title="$1" begin pid
  shift
  begin="$(date +%s%N)"
  wine "$@" >/dev/null 2>&1 &
  started=("$!")
  # xdotool fails if a window is destroyed during its search; just try again.
  until xdotool search --onlyvisible --name "$title" >/dev/null 2>&1; do
    [[ $(date +%s%N) -lt $((begin + 20000000000)) ]] || die "No window: $*"
  done
  milliseconds=$((($(date +%s%N) - begin) / 1000000))
  sleep 1
  pid="$(pgrep -n -f "${1//\//.}")"
  kilobytes="$(awk '/^VmRSS:/ { print $2 }' "/proc/$pid/status")"
  kill "$pid"
  wait "${started[0]}" 2>/dev/null || true
  started=()
}

minimal=("$bin/zekview-minimal-window.exe")
zekview=("$bin/zekview.exe" --dir "$program_directory")
measure 'Minimal window' "${minimal[@]}" # the first run fills caches for the later ones
ours=() our_memory=() theirs=() their_memory=()
for ((run = 0; run < starts; ++run)); do
  measure 'Minimal window' "${minimal[@]}"
  theirs+=("$milliseconds") their_memory+=("$kilobytes")
  measure 'ZEK View' "${zekview[@]}"
  ours+=("$milliseconds") our_memory+=("$kilobytes")
done
echo "First window (ms): zekview ${ours[*]}; minimal window ${theirs[*]}"
echo "Memory (RSS, kB): zekview ${our_memory[*]}; minimal window ${their_memory[*]}"
our_size="$(stripped_size zekview)" their_size="$(stripped_size zekview-minimal-window)"
echo "Size (bytes): zekview $our_size; minimal window $their_size"
verdict "Windows, first window / minimal wxWidgets window" \
  "$(ratio "$(median "${ours[@]}")" "$(median "${theirs[@]}")")" "$start_limit"
verdict "Windows, memory / minimal wxWidgets window" \
  "$(ratio "$(median "${our_memory[@]}")" "$(median "${their_memory[@]}")")" "$start_limit"
verdict "Windows, size / minimal wxWidgets window" "$(ratio "$our_size" "$their_size")" "$size_limit"
exit "$exceeded"
