#!/usr/bin/env bash
# icon.sh: draws the icon of the Windows programs from its SVG, in all sizes that Windows uses.
set -euo pipefail
cd src/desktop/windows
pictures="$(mktemp -d)"
trap 'rm -rf "$pictures"' EXIT
for size in 16 20 24 32 40 48 64 256; do
  rsvg-convert --width "$size" --height "$size" zekview.svg --output "$pictures/$(printf '%03d' "$size").png"
done
convert "$pictures"/*.png zekview.ico
