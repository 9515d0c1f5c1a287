#!/usr/bin/env bash
# idle.sh: measures the processor time of zekview while it is connected and idle.
set -euo pipefail
# shellcheck source=bench/common.sh
source bench/common.sh
# shellcheck source=scripts/demo.sh
source scripts/demo.sh

seconds="${1:-20}"
most=1 # ms of processor time per second
program_directory="$bench_directory/idle"
prepare_demo "$program_directory"
start_plant "$program_directory"
trap 'end_started; kill "$plant" 2>/dev/null || true' EXIT

# The processor time of all threads of process $1, in nanoseconds.
processor_time() { cat "/proc/$1/task/"*/schedstat | awk '{ sum += $1 } END { printf "%.0f", sum }'; }

build/bin/zekview --dir "$program_directory" /DIALOG:SKOLA &
pid="$!"
started=("$pid")
window="$(timeout 20 xdotool search --sync --onlyvisible --pid "$pid" --name '^ZEK View')"
xdotool windowfocus "$window"
# Wait until the about box has closed and the text cursor no longer blinks.
sleep 15
port="$(LC_ALL=C sed -n 's/^SKOLA=.*127\.0\.0\.1:\([0-9]*\),.*/\1/p' "$program_directory/ZEKView.INI")"
grep -q "$(printf ':%04X 01 ' "$port")" /proc/net/tcp || die "zekview is not connected."
before="$(processor_time "$pid")"
sleep "$seconds"
after="$(processor_time "$pid")"
verdict "connected and idle, ms of processor time a second" \
  "$(awk -v ns="$((after - before))" -v s="$seconds" 'BEGIN { print ns / s / 1e6 }')" "$most"
exit "$exceeded"
