#!/usr/bin/env bash
# setup.sh [LIST...]: installs the packages of scripts/packages.txt, and of these lists, that are
# missing. Every subcommand begins with this, so it has to be quick when nothing is.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

log=build/setup.log
lists=(scripts/packages.txt "$@")

command -v dpkg-query >/dev/null || die "This is no Debian system. Install what matches these" \
  "packages yourself and build with the CMake presets:" "$(grep -hv '^#' "${lists[@]}")"

mapfile -t wanted < <(sed -E 's/#.*//; s/[[:space:]]+//g; /^$/d' "${lists[@]}")
# dpkg-query fails for packages that it never heard of; those are just missing.
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
