#!/usr/bin/env bash
# tour.sh DIRECTORY [LANGUAGE [SCALE]]: runs ZekView's tour of its forms on a virtual screen, with a
# simulated plant over TCP/IP, and saves the pictures in DIRECTORY. LANGUAGE is 046 or 044, SCALE is
# 1 (96 dpi) or 2 (192 dpi).
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh
# shellcheck source=scripts/demo.sh
source scripts/demo.sh

pictures="$1"
language="${2:-046}"
export ZEKVIEW_SCALE="${3:-1}"
program_directory=build/tour/program  # new each time, so that the pictures are the same

scripts/setup.sh screen
build_demo
rm -rf "$program_directory"
mkdir -p "$pictures"
rm -f "$pictures"/*.{png,bmp}
prepare_demo "$program_directory"
sed -i "s/^Language=.*/Language=$language\r/" "$program_directory/ZEKView.INI"
start_plant "$program_directory"
scripts/headless.sh timeout 300 build/bin/zekview --dir "$PWD/$program_directory/" \
  --tour "$PWD/$pictures" </dev/null || die "The tour ended with an error."

keep_pictures "$pictures"
echo "The tour's screenshots:"
printf '  %s\n' "${taken[@]}"
