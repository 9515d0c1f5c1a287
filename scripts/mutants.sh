#!/usr/bin/env bash
# mutants.sh [COUNT] [SEED]: builds what the tests of the core need and measures how many of COUNT
# (300) random faults in it they find (mutants.py).
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

scripts/setup.sh run test bench
configure release
cmake --build --preset release --target \
  zekview-tests zekview-cli zekview-fuzz-corpora zekview-round-trips
scripts/mutants.py "$@"
