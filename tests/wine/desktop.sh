#!/usr/bin/env bash
# The Windows desktop program on a simulated plant: it opens, connects, sends a command, fetches the
# catalogues of a time control, opens every editor and closes. Its pictures stay in
# build/win64/pictures. Arguments: the folder of the programs, the data folder.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh
# shellcheck source=scripts/demo.sh
source scripts/demo.sh

bin="$1"
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
