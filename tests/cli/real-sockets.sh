#!/usr/bin/env bash
# The command line program against the simulated plant over real sockets, both framings: what is
# fetched, changed and sent comes back, and the local copies are right byte for byte.
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
sed "s/127\.0\.0\.1:[0-9]*/127.0.0.1:$port/" "$data/demo/ZEKView.INI" >"$home/ZEKView.INI"
cli() { "$bin/zekview-cli" --dir "$home" "$@" 2>"$home/messages"; }
fail() {
  echo "$1" >&2
  cat "$home/messages" >&2
  exit 1
}

# CHANGE KIND NODE COPY: fetches, changes a time, sends, fetches again, and looks at the copy.
change() {
  local node=$1 copy=$2 from=$3 to=$4
  cli get wdc "$node" >"$home/before" || fail "$node: get"
  grep -q "$from" "$home/before" || fail "$node: nothing to change"
  sed "s/$from/$to/" "$home/before" >"$home/after"
  cli put wdc "$node" "$home/after" || fail "$node: put"
  cli get wdc "$node" >"$home/again" || fail "$node: get again"
  diff "$home/after" "$home/again" || fail "$node: the change did not come back"
  sed 's/$/\r/' "$home/after" | cmp - "$home/$copy" || fail "$node: the local copy differs"
}

change SKOLA/AHU1 "f127_0_0_1_$port Björkängsskolan WDC.TXT" '07:00\.\.12:00' '07:15..12:45'
change KONTOR/AHU1 "f127_0_0_1_${port}_3 Kontorshuset vid Ågatan AHU1.TXT" \
  '06:00\.\.18:00' '05:45..18:30'

# A line that the controller refuses is told, after three attempts, by both framings.
for node in SKOLA/AHU1 KONTOR/AHU1; do
  echo " 1000 !AHU1        !XX           !06:00                    !1        !0" >"$home/refused"
  status=0
  cli put wdc "$node" "$home/refused" || status=$?
  [[ $status -eq 1 ]] || fail "$node: a refused line ended with $status"
done

# Without its server the program says so and keeps the old copy.
kill "$plant_pid"
wait "$plant_pid" || true
cp "$home/f127_0_0_1_$port Björkängsskolan WDC.TXT" "$home/old"
status=0
cli get wdc SKOLA/AHU1 || status=$?
[[ $status -eq 1 ]] || fail "without a server: $status"
grep -q SKOLA "$home/messages" || fail "without a server nothing was said"
cmp "$home/old" "$home/f127_0_0_1_$port Björkängsskolan WDC.TXT" || fail "the old copy changed"
