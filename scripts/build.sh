#!/usr/bin/env bash
# build.sh [PRESET]: configures if needed and builds. Release programs are built into build/bin.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

preset="${1:-release}"
case "$preset" in
  release | debug | asan) ;;
  *) die "There is no preset '$preset'; there are release, debug and asan." ;;
esac
scripts/setup.sh run test bench
configure "$preset"
cmake --build --preset "$preset"
