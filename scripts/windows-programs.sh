#!/usr/bin/env bash
# windows-programs.sh NAME: runs a test of whole Windows programs, for test-windows.sh.
#   desktop  The desktop program opens, connects, sends a command, fetches catalogues, opens every
#            editor and closes. It saves its pictures in build/win64/pictures.
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

case "$1" in
  desktop)
    pictures="$PWD/build/win64/pictures"
    program_directory="$PWD/build/win64/tour"
    rm -rf "$pictures" "$program_directory"
    mkdir -p "$pictures"
    prepare_demo "$program_directory"
    start_plant "$program_directory" wine "$bin/zekview-sim.exe"
    timeout 300 wine "$bin/zekview.exe" --dir "$program_directory" --tour "$pictures" </dev/null ||
      die "The tour ended with $?."
    keep_pictures "$pictures"
    for picture in about main browser weekday calendar exception; do
      [[ " ${taken[*]} " == *"/$picture.png "* ]] || die "There is no picture of: $picture"
    done
    ;;
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
