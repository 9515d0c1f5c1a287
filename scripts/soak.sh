#!/usr/bin/env bash
# soak.sh [TRANSFERS [SEED]]: that many transfers (1,000 unless told) with random faults over real
# sockets in one process, each result held against what the server knows, and what the process
# takes of the system in the end against what it took after the tenth transfer.
set -euo pipefail
scripts/build.sh
cmake --build --preset release --target zekview-measure
exec measure/soak.py build/bin data "$@"
