#!/usr/bin/env bash
# run.sh [OPTION...]: starts a simulated plant and opens ZekView on it with these options. The
# program directory build/demo is kept, with its local copies and the changes made at the plant.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh
# shellcheck source=scripts/demo.sh
source scripts/demo.sh

if [[ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]]; then
  echo "There is no display: ZekView takes its tour on a screen in memory instead."
  exec scripts/tour.sh build/tour
fi

build_demo
prepare_demo build/demo
start_plant build/demo
build/bin/zekview --dir "$PWD/build/demo/" "$@"
