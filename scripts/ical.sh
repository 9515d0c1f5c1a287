#!/usr/bin/env bash
# ical.sh linux|win64|win32: builds libical, once, and prints its directory. Debian's own library
# needs ICU, whose loading delays the first frame of zekview by 3 ms.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh
# shellcheck source=scripts/debian-library.sh
source scripts/debian-library.sh

# Times of 64 bits also for win32: libical ends every repetition in 2037 otherwise.
flags="-ffunction-sections -fdata-sections -D__MINGW_USE_VC2005_COMPAT"
options=(-DSTATIC_ONLY=ON -DCMAKE_POSITION_INDEPENDENT_CODE=ON "-DCMAKE_C_FLAGS=$flags"
  -DWITH_CXX_BINDINGS=OFF -DICAL_GLIB=OFF -DICAL_BUILD_DOCS=OFF -DLIBICAL_BUILD_TESTING=OFF
  -DCMAKE_DISABLE_FIND_PACKAGE_ICU=ON -DCMAKE_DISABLE_FIND_PACKAGE_BDB=ON)
# Debian's own changes concern its packages.
debian_library ical "$1" libical3 libical-dev upstream "${options[@]}"
