#!/usr/bin/env bash
# The command line program with the simulated plant over real sockets, in both framings. Catalogues
# are fetched, changed, sent and fetched again, and the local copies must be correct to the byte.
# Arguments: the folder of the programs, the data folder.
set -euo pipefail
bin=$1
data=$2
home=$(mktemp -d)
coproc plant { exec "$bin/zekview-sim" --port 0 --plant "$data/demo/plant"; }
plant_pid=$!
trap 'kill "$plant_pid" 2>/dev/null || true; rm -rf "$home"' EXIT
read -r port <&"${plant[0]}"

cp "$data"/lang/zek_lang.* "$home"
sed "s/127\.0\.0\.1:[0-9]*/127.0.0.1:$port/; s/^\[General\]/&\r\nVerifyAfterWrite=YES/" \
  "$data/demo/ZEKView.INI" >"$home/ZEKView.INI"
# shellcheck source=tests/cli/change.sh
source "$(dirname "$0")/change.sh"

# change_copy KIND NODE COPY FROM TO: changes a catalogue and checks its local copy.
change_copy() {
  change "$1" "$2" "$4" "$5"
  sed 's/$/\r/' "$home/after" | cmp - "$home/$3" || fail "$1 $2: the local copy differs"
}

school="f127_0_0_1_$port Björkängsskolan"
office="f127_0_0_1_${port}_3 Kontorshuset vid Ågatan"
# A control's save puts the other controls' lines first in the local copy, and changes only its own.
change wdc SKOLA/AHU1 '!AHU1 \( *!SD2 *\)!07:00\.\.12:00' '!AHU1 \1!07:15..12:45'
change ovc SKOLA/PLT1 '!PLT1 \(.*\)26-DEC-26,17:00' '!PLT1 \127-DEC-26,18:30'
change_copy wdc SKOLA "$school WDC.TXT" '07:00\.\.12:00' '07:15..12:45'
change_copy wdc KONTOR/AHU1 "$office AHU1.TXT" '06:00\.\.18:00' '05:45..18:30'
change_copy sdc SKOLA/PLT1 "$school SDC.TXT" '05-NOV-27 ' '06-NOV-27 '
change_copy sdc KONTOR "$office SDC.TXT" '\.\.26-DEC-2026' '..27-DEC-2026'
change_copy ovc SKOLA "$school OVC.TXT" '27-DEC-26,18:30' '26-DEC-26,17:00'
change_copy ovc KONTOR/PLT1 "$office PLT1 EXC.TXT" '19-DEC-2026 ' '20-DEC-2026 '
change_copy ovc KONTOR/VS1 "$office VS1 EXC.TXT" '!16    !21' '!15.5  !.'

# A "PLT" control sends the calendar in its own layout; every control can read it afterwards.
for node in SKOLA/PLT2 KONTOR/PLT7; do
  cli get sdc "$node" >"$home/before" || fail "$node: get"
  cli check sdc "$node" "$home/before" --rebuild >"$home/rebuilt" || fail "$node: rebuild"
  cli put sdc "$node" "$home/rebuilt" || fail "$node: put"
  cli get sdc "$node" >"$home/again" || fail "$node: get again"
  cli check sdc "${node%/*}/AHU1" "$home/again" >/dev/null || fail "$node: both layouts"
done

# This plant keeps a line that is no longer sent; the program detects that and names the line.
cli get wdc KONTOR/AHU1 >"$home/before" || fail "get before a line is removed"
sed '$d' "$home/before" >"$home/shorter"
status=0
cli put wdc KONTOR/AHU1 "$home/shorter" || status=$?
[[ $status -eq 1 ]] || fail "a line that stayed ended with $status"
[[ $(grep -c 'SD3  *07:00\.\.17:00' "$home/messages") -eq 2 ]] || fail "the line that stayed was not named"

# A line that the controller refuses is reported after three attempts, in both framings.
for node in SKOLA/AHU1 KONTOR/AHU1; do
  echo " 1000 !AHU1        !XX           !06:00                    !1        !0" >"$home/refused"
  status=0
  cli put wdc "$node" "$home/refused" || status=$?
  [[ $status -eq 1 ]] || fail "$node: a refused line ended with $status"
done

# Without its server the program reports an error and keeps the old copy.
kill "$plant_pid"
wait "$plant_pid" || true
cp "$home/$school WDC.TXT" "$home/old"
fails wdc SKOLA/AHU1 SKOLA
cmp "$home/old" "$home/$school WDC.TXT" || fail "the old copy changed"
