#!/usr/bin/env bash
# wx-windows.sh win64|win32: builds the toolkit for Windows, once, from the source package of the
# version that the Linux program uses. Prints its directory. The result is kept outside the work
# tree, in ${ZEKVIEW_CACHE:-~/.cache/zekview}, for other clones and later runs.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

word="$1" # win64 or win32
toolchain="$PWD/cmake/mingw${word#win}.cmake"
# Switch off the features that no form uses.
options=(-DCMAKE_BUILD_TYPE=MinSizeRel -DwxBUILD_SHARED=OFF -DwxBUILD_INSTALL=ON)
for feature in AUI HTML PROPGRID RIBBON RICHTEXT STC WEBVIEW MEDIACTRL OPENGL XRC XML LIBTIFF \
  LIBJPEG LIBPNG EXPAT LIBLZMA ZLIB REGEX ARTPROVIDER_TANGO WXHTML_HELP SVG; do
  options+=("-DwxUSE_$feature=OFF")
done
# The variable belongs to dpkg-query, not to the shell.
# shellcheck disable=SC2016
version="$(dpkg-query -W -f='${source:Version}' libwxgtk3.2-dev)"
key="$(cat "$toolchain" cmake/mingw.cmake - <<<"${options[*]}" | sha256sum | cut -c 1-8)"
cache="${ZEKVIEW_CACHE:-$HOME/.cache/zekview}"
target="$cache/wx-$version-$key-$word"
log="$PWD/build/wx-$word.log"

# Copies the machine's package sources as sources of source packages, so that apt can fetch them
# without a change to the machine.
describe_sources() {
  local own="$work/apt" file
  mkdir -p "$own/parts" "$own/lists"
  shopt -s nullglob
  for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    if [[ -f $file ]]; then sed -nE 's/^deb[[:space:]]/deb-src /p' "$file"; fi
  done >"$own/sources.list"
  for file in /etc/apt/sources.list.d/*.sources; do
    sed -E 's/^Types:.*/Types: deb-src/' "$file" >"$own/parts/${file##*/}"
  done
}

fetch_source() {
  local apt=(apt-get -q -o "Dir::Etc::sourcelist=$work/apt/sources.list"
    -o "Dir::Etc::sourceparts=$work/apt/parts" -o "Dir::State::lists=$work/apt/lists"
    -o APT::Sandbox::User=root)
  describe_sources
  "${apt[@]}" update
  (cd "$work" && "${apt[@]}" --download-only source "wxwidgets3.2=$version")
  dpkg-source --no-check -x "$work"/wxwidgets3.2_*.dsc "$work/source"
}

build() {
  trap 'rm -rf "$work"' EXIT
  fetch_source
  cmake -G Ninja -S "$work/source" -B "$work/build" --toolchain "$toolchain" "${options[@]}" \
    -DCMAKE_INSTALL_PREFIX="$target"
  nice cmake --build "$work/build" --parallel "$(nproc)"
  rm -rf "$target"
  cmake --install "$work/build"
  touch "$target/complete"
}

mkdir -p "$cache" build
exec {lock}>"$cache/$word.lock"
flock "$lock" # another clone may be building the same version
if [[ ! -f $target/complete ]]; then
  echo "Building the toolkit for $word, once; that takes some minutes (log: $log)." >&2
  work="$(mktemp -d "$cache/work-XXXXXX")"
  status=0
  # In the background, because "set -e" has no effect in a function before "||".
  (build) >"$log" 2>&1 &
  wait $! || status=$?
  if [[ $status -ne 0 ]]; then
    tail -n 30 "$log" >&2
    die "The toolkit could not be built; the whole log is in $log."
  fi
fi
echo "$target"
