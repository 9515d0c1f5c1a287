#!/usr/bin/env bash
# soak.sh [TRANSFERS [SEED]]: runs TRANSFERS (default: 1,000) transfers with random faults over real
# sockets in one process. Compares each result with the server's state, and the resources of the
# process at the end with those after the tenth transfer.
set -euo pipefail
scripts/build.sh
cmake --build --preset release --target zekview-measure
exec measure/soak.py build/bin data "$@"
