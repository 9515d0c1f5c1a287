#!/usr/bin/env bash
# The installer package under Wine: installed without questions, used, replaced by a newer version,
# refused after that, and removed; the data folder is never touched. Also: the same bytes again, and
# signing. Arguments: the package, the folder of its content, its version, an empty folder.
set -euo pipefail
package=$1
content=$2
version=$3
home=$4
newer="${version%.*}.$((${version##*.} + 1))"
drive="$WINEPREFIX/drive_c"
programs="$drive/Program Files/ZekView"
data="$drive/ProgramData/ZekView"


bin=none
: >"$home/messages"
# shellcheck source=tests/cli/change.sh
source "$(dirname "$0")/../cli/change.sh"
# Root may write into every folder; without this right it may not.
weak=()
[[ $EUID -ne 0 ]] || weak=(setpriv --bounding-set=-dac_override)
installed() { "${weak[@]}" wine "$programs/$1.exe" "${@:2}" </dev/null; }
cli() { installed zekview-cli "$@" 2>"$home/messages"; }
menu() { find "$drive" -name ZekView.lnk; } # Wine has its own places for it
sums() { (cd "$1" && find . -type f -exec sha256sum {} + | LC_ALL=C sort); }
install() { wine msiexec /i "Z:$1" /qn "${@:2}" </dev/null; }

scripts/msi.py "$content" "$home/again.msi" "$version" win64
cmp "$package" "$home/again.msi" || fail "the same content gave other bytes"
scripts/msi.py "$content" "$home/newer.msi" "$newer" win64

openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=Test -addext extendedKeyUsage=codeSigning \
  -keyout "$home/key" -out "$home/certificate" 2>/dev/null
cp "$package" "$home/signed.msi"
cp "$content/zekview-cli.exe" "$home/signed.exe"
cat >"$home/sign" <<TEXT
osslsigncode sign -certs "$home/certificate" -key "$home/key" -in "\$1" -out "\$1.new"
mv "\$1.new" "\$1"
TEXT
ZEKVIEW_SIGN_COMMAND="bash -e $home/sign" scripts/sign.sh "$home"/signed.*
for file in "$home"/signed.*; do
  osslsigncode verify -CAfile "$home/certificate" -in "$file" || fail "$file is not signed"
done

# An older folder, as the zip leaves it.
mkdir -p "$home/old/History"
coproc plant { exec wine "$content/zekview-sim.exe" --port 0 --plant "Z:$content/demo/plant"; }
plant_pid=$!
trap 'kill "$plant_pid" 2>/dev/null || true' EXIT
read -r -t 60 port <&"${plant[0]}"
sed -e "s/127\.0\.0\.1:[0-9]*/127.0.0.1:${port//[!0-9]/}/" \
  -e 's/^\[General\]/&\r\nVerifyAfterWrite=YES/' data/demo/ZEKView.INI >"$home/old/ZEKView.INI"
printf ' 1000 !AHU1\r\n' >"$home/old/History/x WDC 20260101-000000.TXT"
sums "$home/old" >"$home/old.sums"

install "$package" LANGUAGE=044 || fail "msiexec ended with $?"
diff -r --exclude datadir.ini "$content" "$programs" || fail "not everything was installed"
[[ -n $(menu) ]] || fail "there is no entry in the Start menu"
[[ -d $data ]] || fail "there is no data folder"
events='HKLM\System\CurrentControlSet\Services\EventLog\Application\ZekView'
wine reg query "$events" | grep -q 'EXPAND_SZ *%SystemRoot%.*EventCreate.exe' || fail "no event source"
chmod -R a-w "$programs"
if "${weak[@]}" touch "$programs/new" 2>/dev/null; then fail "the programs' folder can be written"; fi
sums "$programs" >"$home/programs.sums"

status=0
cli objects || status=$?
[[ $status -eq 2 ]] || fail "without settings it ended with $status"
grep -q 'ProgramData.ZekView.*no settings' "$home/messages" || fail "it did not say what is missing"
cli take-over "Z:$home/old" || fail "take-over"
sums "$home/old" | cmp - "$home/old.sums" || fail "the older folder changed"
[[ -f "$data/History/x WDC 20260101-000000.TXT" ]] || fail "the history was not taken over"

change wdc SKOLA/AHU1 '!AHU1 \( *!SD2 *\)!07:00\.\.12:00' '!AHU1 \1!07:15..12:45'
timeout 300 "${weak[@]}" wine "$programs/zekview.exe" /BATCH </dev/null || fail "zekview ended with $?"
compgen -G "$data/Batch/*" >/dev/null || fail "the export is not in the data folder"
sums "$programs" | cmp - "$home/programs.sums" || fail "something was written beside the programs"
sums "$data" >"$home/data.sums"
chmod -R u+w "$programs"

same() { sums "$data" | cmp - "$home/data.sums" || fail "the data folder changed: $1"; }
install "$home/newer.msi" || fail "the upgrade ended with $?"
diff -r --exclude datadir.ini "$content" "$programs" || fail "the upgrade lost programs"
same "upgrade"
cli objects >/dev/null || fail "after the upgrade"
if install "$package"; then fail "an older version was installed over a newer one"; fi
[[ "$(wine reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' /s |
  grep -c 'DisplayName.*ZekView')" -eq 1 ]] || fail "more than one version is installed"
cli objects >/dev/null || fail "after the refusal"
wine msiexec /x "Z:$home/newer.msi" /qn </dev/null || fail "the removal ended with $?"
[[ ! -e $programs/zekview.exe && -z $(menu) ]] || fail "the removal left the programs"
same "removal"
if wine reg query "$events" >/dev/null; then fail "the removal left the event source"; fi

# Another data folder is remembered by the next version.
install "$package" 'DATAFOLDER=C:\Värme' || fail "the installation elsewhere ended with $?"
install "$home/newer.msi" || fail "the second upgrade ended with $?"
if cli objects; then fail "the new folder has settings"; fi
grep -q 'C:.Värme.*no settings' "$home/messages" || fail "the chosen folder was forgotten"
same "installation elsewhere"
