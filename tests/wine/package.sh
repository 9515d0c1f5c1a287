#!/usr/bin/env bash
# What is handed to users, unpacked in a Wine that has seen nothing of ours, fetches, changes and
# sends catalogues over every link. Arguments: the folder of the programs, the data folder.
set -euo pipefail
scripts/windows.sh win64
unpacked="$(mktemp -d)"
export WINEPREFIX="$unpacked/wine"
trap 'wineserver -k || true; wineserver -w; rm -rf "$unpacked"' EXIT
python3 -m zipfile -e dist/zekview-*-win64.zip "$unpacked"
folder=("$unpacked"/zekview-*)
for file in LÄSMIG.txt README.txt ZEKView.INI demo.cmd zek_lang.046 zekview.exe; do
  [[ -s ${folder[0]}/$file ]] || { echo "The package lacks $file."; exit 1; }
done
tests/windows/real-links.sh "${folder[0]}" "$2" "$1"
