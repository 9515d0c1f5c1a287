#!/usr/bin/env bash
# The Windows command line program over every link: DDE, network DDE, TCP/IP and the tag object.
# Over each link a catalogue is fetched, changed, sent and fetched again, with a ZEK1 and a ZEK2
# controller, and failures are reported. Arguments: the folder of the programs, the data folder, the
# folder of the tag object for the tests.
set -euo pipefail
bin=$1
data=$2
doubles=$3
home=$(mktemp -d)
cp -R "$data/demo/plant" "$home/plant"
cp "$data"/lang/zek_lang.* "$home"

export ZEKVIEW_TAG_PLANT="Z:$home/plant"
# shellcheck source=tests/cli/tag-object.sh
source "$(dirname "$0")/tag-object.sh"

coproc plant {
  exec "$bin/zekview-sim" --port 0 --plant "Z:$home/plant" --keep \
    --dde ZEK --dde '\\PLANT2\NDDE$'
}
plant_pid=$!
trap 'kill "$plant_pid" 2>/dev/null || true; unregister_tags || true; rm -rf "$home"' EXIT
read -r -t 60 port <&"${plant[0]}"
port="${port%$'\r'}"

# shellcheck source=tests/cli/change.sh
source "$(dirname "$0")/change.sh"

# settings ZEK1_ADDRESS ZEK2_ADDRESS [GENERAL]: writes ZEKView.INI with these addresses.
settings() {
  sed -e "s/127\.0\.0\.1:5100:3/$2/" -e "s/127\.0\.0\.1:5100,/$1,/" \
    -e "s/^\[General\]/&\r\nVerifyAfterWrite=YES\r\n${3:-Timer=}/" \
    "$data/demo/ZEKView.INI" >"$home/ZEKView.INI"
}

# there_and_back LINK: changes all kinds of catalogues, and changes them back for the next link.
there_and_back() {
  change wdc SKOLA/AHU1 '!AHU1 \( *!SD2 *\)!07:00\.\.12:00' '!AHU1 \1!07:15..12:45'
  change ovc KONTOR/PLT1 '19-DEC-2026 ' '20-DEC-2026 '
  change sdc SKOLA/PLT1 '05-NOV-27 ' '06-NOV-27 '
  change wdc SKOLA/AHU1 '!AHU1 \( *!SD2 *\)!07:15\.\.12:45' '!AHU1 \1!07:00..12:00'
  change ovc KONTOR/PLT1 '20-DEC-2026 ' '19-DEC-2026 '
  change sdc SKOLA/PLT1 '06-NOV-27 ' '05-NOV-27 '
  echo "$1: passed"
}

settings "127.0.0.1:$port" "127.0.0.1:$port:3"
there_and_back "TCP/IP"
settings "" ""
there_and_back "DDE"
settings "PLANT2" "PLANT2"
there_and_back "network DDE"

settings "PLANT3" "PLANT3" # no server
fails wdc SKOLA/AHU1 SKOLA
fails wdc SKOLA/AHU1 "servern finns inte"

settings "" "" "TagMode=yes" # and no tag object
fails wdc SKOLA/AHU1 CTAPIX
register_tags "$doubles"
there_and_back "tags"

# The object's message repeats the password, which the program hides.
settings "" "" "TagMode=yes\r\nUserName=raise"
echo hemligt7 | "$bin/zekview-cli" --dir "$home" password >/dev/null || fail "password"
grep -q '^Password={dpapi}' "$home/ZEKView.INI" || fail "the password is not encrypted"
fails wdc SKOLA/AHU1 'raise/\*\*\*'
sed -i '/^Password/s/.\{12\}\r$/AAAAAAAAAAAA\r/' "$home/ZEKView.INI"
fails wdc SKOLA/AHU1 "zekview-cli password"
settings "" "" "TagMode=yes"
echo "password: passed"

# Wine keeps no events, but traces them.
status=0
WINEDEBUG=-all,+eventlog cli export --eventlog sdc >/dev/null || fail "export"
grep -q 'trace:eventlog.*Alla' "$home/messages" || fail "the success is not recorded"
WINEDEBUG=-all,+eventlog cli export --eventlog nothing || status=$?
grep -q 'err:eventlog.*nothing' "$home/messages" || fail "the failure ($status) is not recorded"
status=0
ZEKVIEW_TAG_FAULT="crash TagWrite" WINEDEBUG=-all,+eventlog cli export --eventlog sdc || status=$?
grep -q 'err:eventlog.*Crashes' "$home/messages" || fail "the crash ($status) is not recorded"
grep -q 'Fault: access violation' "$home/Crashes/"* || fail "the crash left no report"
echo "events: passed"

ZEKVIEW_TAG_FAULT="raise TagWrite" fails wdc SKOLA/AHU1 "the plant is on fire"
ZEKVIEW_TAG_FAULT="lack TagRead" fails wdc SKOLA/AHU1 "TagRead"
ZEKVIEW_TAG_FAULT="fail Open" fails wdc SKOLA/AHU1 "SKOLA\|Tag"
cli get wdc SKOLA/AHU1 >"$home/again" || fail "after the failures nothing works"
echo "failures: passed"
