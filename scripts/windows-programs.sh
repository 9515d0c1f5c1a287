#!/usr/bin/env bash
# windows-programs.sh NAME: runs a test of whole Windows programs, for test-windows.sh.
#   desktop  The desktop program opens, connects, sends a command, fetches catalogues, opens every
#            editor, exports and closes. It saves its pictures in build/win64/pictures.
#   dde      The same over DDE, while other programs take the processor. Its export is complete, and
#            so is that of the command line program.
#   tags     The same over the tag object.
#   sockets  The command line program talks to the simulated plant over real sockets
#            (tests/cli/real-sockets.sh).
#   package  The zip for users is unpacked in a new Wine. Its programs fetch, change and send
#            catalogues over every link.
#   installer  The installer package is installed in a new Wine, used, upgraded and removed
#            (tests/windows/installer.sh).
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh
# shellcheck source=scripts/demo.sh
source scripts/demo.sh
# shellcheck source=tests/cli/tag-object.sh
source tests/cli/tag-object.sh

bin="$PWD/build/win64/bin"
data="$PWD/data"

# wrap FOLDER: makes scripts in $temporary that run the programs of FOLDER under Wine.
wrap() {
  local program
  for program in zekview-cli zekview-sim; do
    printf '#!/bin/sh\nexec wine "%s/%s.exe" "$@"\n' "$1" "$program" >"$temporary/$program"
    chmod +x "$temporary/$program"
  done
}

# tour LINK: the desktop program's tour over tcp, dde or tags.
tour() {
  local pictures="$PWD/build/win64/pictures" folder="$PWD/build/win64/tour" busy=()
  [[ $1 == tcp ]] || pictures="$pictures-$1" folder="$folder-$1"
  rm -rf "$pictures" "$folder" "$folder-tcp"
  mkdir -p "$pictures"
  prepare_demo "$folder"
  start_plant "$folder" wine "$bin/zekview-sim.exe"
  if [[ $1 != tcp ]]; then
    cp -R "$folder" "$folder-tcp"
    LC_ALL=C sed -i -E 's/127\.0\.0\.1:[0-9]+(:3)?,/,/' "$folder/ZEKView.INI"
    for _ in 1 2 3 4; do busy+=("$(spin)"); done
  fi
  if [[ $1 == tags ]]; then
    LC_ALL=C sed -i 's/^\[General\]/&\r\nTagMode=yes/' "$folder/ZEKView.INI"
    export ZEKVIEW_TAG_PLANT="Z:$folder/plant"
    trap 'kill "$plant" 2>/dev/null || true; unregister_tags || true' EXIT
    register_tags "$bin"
  fi
  timeout 300 wine "$bin/zekview.exe" --dir "$folder" --tour "$pictures" </dev/null ||
    die "The tour ended with $?."
  if [[ $1 != tcp ]]; then
    mv "$folder/Batch" "$folder/desktop"
    wine "$bin/zekview-cli.exe" --dir "$folder" export wdc sdc ovc >/dev/null
    kill "${busy[@]}"
  fi
  keep_pictures "$pictures"
  for picture in about main browser weekday calendar exception; do
    [[ " ${taken[*]} " == *"/$picture.png "* ]] || die "There is no picture of: $picture"
  done
  [[ $1 == tcp ]] || same_export "$folder"
}

# spin: starts a process that takes all the processor time it gets; prints its number.
spin() {
  timeout 300 sh -c 'while :; do :; done' >/dev/null &
  echo "$!"
}

# same_export FOLDER: what both programs exported there is what an export over TCP/IP gives.
same_export() {
  local kind made
  wine "$bin/zekview-cli.exe" --dir "$1-tcp" export wdc sdc ovc >/dev/null
  for kind in WDC SDC OVC; do
    for made in "$1/desktop" "$1/Batch" "$1-tcp/Batch"; do
      # The first and the last line hold the time.
      sed '1d;$d' "$made/$kind"*.SKV >"$made/$kind"
      [[ -s $made/$kind ]] || die "No records: $made/$kind"
      cmp "$1/desktop/$kind" "$made/$kind"
    done
  done
}

case "$1" in
  desktop) tour tcp ;;
  dde | tags) tour "$1" ;;
  sockets)
    temporary="$(mktemp -d)"
    trap 'rm -rf "$temporary"' EXIT
    wrap "$bin"
    tests/cli/real-sockets.sh "$temporary" "$data"
    ;;
  package)
    scripts/windows.sh win64
    temporary="$(mktemp -d)"
    export WINEPREFIX="$temporary/wine"
    trap 'wineserver -k || true; wineserver -w; rm -rf "$temporary"' EXIT
    python3 -m zipfile -e dist/zekview-*-win64.zip "$temporary"
    folder=("$temporary"/zekview-*)
    for file in LÄSMIG.txt README.txt ZEKView.INI demo.cmd zek_lang.046 zekview.exe; do
      [[ -s ${folder[0]}/$file ]] || die "The package lacks $file."
    done
    wrap "${folder[0]}"
    tests/cli/real-links.sh "$temporary" "$data" "$bin"
    ;;
  installer)
    scripts/windows.sh win64
    temporary="$(mktemp -d)"
    export WINEPREFIX="$temporary/wine"
    trap 'wineserver -k || true; wineserver -w; rm -rf "$temporary"' EXIT
    version="$(sed -nE 's/^project\(ZekView VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)"
    tests/windows/installer.sh "$PWD/dist/zekview-$version-win64.msi" \
      "$PWD/build/win64/zekview-$version-win64-installed" "$version" "$temporary"
    ;;
  *) die "windows-programs.sh has no test '$1'." ;;
esac
