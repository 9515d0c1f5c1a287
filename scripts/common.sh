# Functions for all scripts; source it with the project root as the current directory.
# shellcheck shell=bash

die() {
  echo "$*" >&2
  exit 1
}

# Git refuses a clone that belongs to another user, as in containers and CI, unless it is marked
# safe.
export GIT_CONFIG_COUNT=1 GIT_CONFIG_KEY_0=safe.directory GIT_CONFIG_VALUE_0="$PWD"

# Prints the matching files of the work tree, including untracked ones; each name ends in NUL.
worktree_files() {
  local file
  git ls-files -z --cached --others --exclude-standard -- "$@" |
    while IFS= read -r -d '' file; do
      if [[ -f "$file" ]]; then printf '%s\0' "$file"; fi
    done
}

# configure PRESET [TESTING]: configures build/PRESET if it is not configured, if the presets have
# changed since, or if it was configured without tests and tests are wanted. TESTING=OFF does not
# need the packages of the tests. The build itself notices changes of the CMakeLists.txt files.
configure() {
  local preset="$1" testing="${2:-ON}" folder="build/$1"
  if [[ -f $folder/build.ninja && $folder/configured -nt CMakePresets.json ]] &&
    { [[ $testing == OFF ]] || grep -qx 'BUILD_TESTING:BOOL=ON' "$folder/CMakeCache.txt"; }; then
    return
  fi
  cmake --preset "$preset" "-DBUILD_TESTING=$testing"
  touch "$folder/configured"
}
