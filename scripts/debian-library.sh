# Builds a static library, once, from the Debian source package in the version of the installed
# package. The result is kept outside the work tree, in ${ZEKVIEW_CACHE:-~/.cache/zekview}, for other
# clones and later runs. Source it after scripts/common.sh.
# shellcheck shell=bash

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

# Unpacks the source package; with "upstream" without Debian's own changes.
fetch_source() {
  local apt=(apt-get -q -o "Dir::Etc::sourcelist=$work/apt/sources.list"
    -o "Dir::Etc::sourceparts=$work/apt/parts" -o "Dir::State::lists=$work/apt/lists"
    -o APT::Sandbox::User=root)
  describe_sources
  "${apt[@]}" update
  if [[ $changes == upstream ]]; then
    (cd "$work" && "${apt[@]}" --download-only --tar-only source "$source=$version")
    mkdir "$work/source"
    tar -xf "$work/${source}_"*.orig.tar.* -C "$work/source" --strip-components=1
  else
    (cd "$work" && "${apt[@]}" --download-only source "$source=$version")
    dpkg-source --no-check -x "$work/${source}_"*.dsc "$work/source"
  fi
}

build_it() {
  trap 'rm -rf "$work"' EXIT
  fetch_source
  # The paths in assertions and of the library's own files are the same wherever it is built.
  local flags="-Os -DNDEBUG -ffile-prefix-map=$work=."
  cmake -G Ninja -S "$work/source" -B "$work/build" "$@" -DCMAKE_BUILD_TYPE=MinSizeRel \
    "-DCMAKE_C_FLAGS_MINSIZEREL=$flags" "-DCMAKE_CXX_FLAGS_MINSIZEREL=$flags" \
    -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_INSTALL_LIBDIR=lib
  nice cmake --build "$work/build" --parallel "$(nproc)"
  rm -rf "$target"
  cmake --install "$work/build" --prefix "$target"
  touch "$target/complete"
}

# debian_library NAME linux|win64|win32 SOURCE PACKAGE debian|upstream OPTION...: builds the source
# package SOURCE in the version of the installed PACKAGE with these options of CMake; prints the
# directory.
debian_library() {
  local name="$1" word="$2" source="$3" changes="$5" version key cache target log work status=0
  local toolchain=()
  # The variable belongs to dpkg-query, not to the shell.
  # shellcheck disable=SC2016
  version="$(dpkg-query -W -f='${source:Version}' "$4")"
  shift 5
  # The key does not cover this script: increase "build" when it builds something else.
  local build=1
  [[ $word == linux ]] || toolchain=("$PWD/cmake/mingw${word#win}.cmake" "$PWD/cmake/mingw.cmake")
  key="$(cat "${toolchain[@]}" - <<<"$build $changes $*" | sha256sum | cut -c 1-8)"
  [[ $word == linux ]] || set -- --toolchain "${toolchain[0]}" "$@"
  cache="${ZEKVIEW_CACHE:-$HOME/.cache/zekview}"
  target="$cache/$name-$version-$key-$word"
  log="$PWD/build/$name-$word.log"
  mkdir -p "$cache" build
  exec {lock}>"$cache/$word.lock"
  flock "$lock" # another clone may be building the same version
  if [[ ! -f $target/complete ]]; then
    echo "Building $name for $word, once; that takes some minutes (log: $log)." >&2
    work="$(mktemp -d "$cache/work-XXXXXX")"
    # In the background, because "set -e" has no effect in a function before "||".
    (build_it "$@") >"$log" 2>&1 &
    wait $! || status=$?
    if [[ $status -ne 0 ]]; then
      tail -n 30 "$log" >&2
      die "$name could not be built; the whole log is in $log."
    fi
  fi
  echo "$target"
}
