#!/usr/bin/env bash
# mutants.sh [COUNT] [SEED]: builds the tests of the core and counts how many of COUNT (default:
# 300) random faults in the core they find (mutants.py).
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

scripts/setup.sh run test bench
configure release
cmake --build --preset release --target \
  zekview-tests zekview-cli zekview-fuzz-corpora zekview-round-trips
scripts/mutants.py "$@"
