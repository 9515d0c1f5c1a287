#!/usr/bin/env bash
# setup.sh [SECTION...]: installs the missing packages of these sections of scripts/packages.txt.
# Without sections: of all except [report] and [windows]. Most subcommands call this first, so it must be quick
# if nothing is missing.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

log=build/setup.log
list=scripts/packages.txt
[[ $# -gt 0 ]] || set -- run screen test bench fuzz lint
for section in "$@"; do
  grep -qxF "[$section]" "$list" || die "$list has no section [$section]."
done
mapfile -t wanted < <(awk -v sections=" $* " '
  /^\[/ { taken = index(sections, " " substr($1, 2, length($1) - 2) " "); next }
  taken && /^[^#]/ { print $1 }' "$list")

command -v dpkg-query >/dev/null || die "This is no Debian system. Install what matches these" \
  "packages yourself and build with the CMake presets: ${wanted[*]}"

# dpkg-query fails for unknown packages; they count as missing.
installed="$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "${wanted[@]}" 2>/dev/null || true)"
missing=()
for package in "${wanted[@]}"; do
  grep -qxF "$package installed" <<<"$installed" || missing+=("$package")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

as_root=()
if [[ $EUID -ne 0 ]]; then
  command -v sudo >/dev/null ||
    die "These packages are missing: ${missing[*]}. Install them as root, or install sudo."
  as_root=(sudo)
fi

apt() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -o DPkg::Lock::Timeout=300 "$@" </dev/null >>"$log" 2>&1
}

mkdir -p build
: >"$log"
echo "Installing ${#missing[@]} packages (log: $log): ${missing[*]}"
if ! { apt update && apt install --yes --no-install-recommends "${missing[@]}"; }; then
  tail -n 30 "$log" >&2
  die "The packages could not be installed; the whole log is in $log."
fi
