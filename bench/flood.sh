#!/usr/bin/env bash
# flood.sh: sends text over a loopback connection as fast as it is read, to the log of zekview and
# to putty's raw mode. Measures the time, and how fast the window answers meanwhile.
set -euo pipefail
# shellcheck source=bench/common.sh
source bench/common.sh
trap end_started EXIT

megabytes=20
long_flood=500 # long enough to measure zekview's window meanwhile
most_of_putty=0.2  # five times as fast
longest_answer=100 # ms; users notice a longer delay
program_directory="$bench_directory/flood"
mkdir -p "$program_directory"
cp data/lang/zek_lang.* "$program_directory/"

# flood MEGABYTES COMMAND...: replaces PORT in the command by the server's port. Sets `seconds`,
# `answer` (the window's longest time to an answer, in ms) and `answers` (the number of answers).
flood() {
  local size="$1" server port client window figures
  shift
  exec {server}< <(exec bench/flood-server.py "$size")
  started=("$!")
  read -r port <&"$server"
  sed "s/PORT/$port/" >"$program_directory/ZEKView.INI" <<'TEXT'
[General]
Language=046
DisconnectTime=300
GetTSCTimeout=5
DialogMode=ALL
[Topics]
FLOOD=YES,ZEK1,127.0.0.1:PORT,Flood
TEXT
  "${@//PORT/$port}" &
  client="$!"
  started+=("$client")
  window="$(timeout 20 xdotool search --sync --onlyvisible --pid "$client" | head -n 1)"
  mapfile -t figures < <(build/bin/zekview-window-probe ping "$window" <&"$server")
  exec {server}<&-
  kill "$client"
  wait "$client" || true # killed
  started=()
  [[ ${#figures[@]} -eq 2 ]] || die "The flood did not end: $1"
  seconds="${figures[0]}"
  read -r answer answers <<<"${figures[1]}"
  echo "$(basename "$1"): $size MB in $seconds s, longest answer $answer ms of $answers"
}

zekview=(build/bin/zekview --dir "$program_directory" /DIALOG:FLOOD)
flood "$megabytes" "${zekview[@]}"
our_seconds="$seconds"
flood "$megabytes" putty -raw -P PORT 127.0.0.1
verdict "flood of $megabytes MB / putty -raw" "$(ratio "$our_seconds" "$seconds")" "$most_of_putty"
flood "$long_flood" "${zekview[@]}"
verdict "longest answer of the window under $long_flood MB, ms" "$answer" "$longest_answer"
exit "$exceeded"
