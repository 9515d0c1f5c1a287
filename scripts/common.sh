# What the scripts share; sourced with the project root as the current directory.
# shellcheck shell=bash

die() {
  echo "$*" >&2
  exit 1
}

# A clone may belong to another user than the one who builds (containers, CI): git would refuse.
export GIT_CONFIG_COUNT=1 GIT_CONFIG_KEY_0=safe.directory GIT_CONFIG_VALUE_0="$PWD"

# The files of the work tree that match, new ones included; each ends in NUL.
worktree_files() {
  local file
  git ls-files -z --cached --others --exclude-standard -- "$@" |
    while IFS= read -r -d '' file; do
      if [[ -f "$file" ]]; then printf '%s\0' "$file"; fi
    done
}

# configure PRESET [TESTING]: configures build/PRESET when it is not, when the presets changed since,
# or when tests are to be built and it has none. With TESTING=OFF it needs no packages of the tests.
# Changes of the CMakeLists.txt files are noticed by the build itself.
configure() {
  local preset="$1" testing="${2:-ON}" folder="build/$1" options=()
  if [[ -f $folder/build.ninja && $folder/configured -nt CMakePresets.json ]] &&
    { [[ $testing == OFF ]] || grep -qx 'BUILD_TESTING:BOOL=ON' "$folder/CMakeCache.txt"; }; then
    return
  fi
  options=("-DBUILD_TESTING=$testing")
  if command -v ccache >/dev/null; then options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
  cmake --preset "$preset" "${options[@]}"
  touch "$folder/configured"
}
