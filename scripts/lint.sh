#!/usr/bin/env bash
# lint.sh: checks everything that can be checked without running the programs. It continues after a
# finding, so that one run shows all of them.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

check_format() {
  worktree_files '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror
}

# Does not check data files (see .gitattributes), where a blank or a tab can be data.
check_whitespace() {
  local files found=0
  mapfile -d '' -t files < <(worktree_files '*.cpp' '*.h' '*.cmake' '*CMakeLists.txt' '*.json' \
    '*.py' '*.sh' '*.md' '*.supp' 'scripts/*.txt' dev .ci/run '.clang-*' '.git*')
  grep -nE '[[:space:]]$' "${files[@]}" && { echo "^ trailing blanks"; found=1; }
  grep -nP '\t' "${files[@]}" && { echo "^ tabs"; found=1; }
  return "$found"
}

check_scripts() {
  worktree_files '*.sh' dev .ci/run | xargs -0 shellcheck --external-sources
}

check_data() {
  scripts/check-data.py
}

check_floors() {
  scripts/floors.py
}

check_tidy() {
  configure release >/dev/null &&
    cmake --build --preset release --target build.ninja >/dev/null && # new files join the build
    scripts/tidy.py build/release
}

scripts/setup.sh
failed=()
for check in format whitespace scripts data floors tidy; do
  echo "lint: $check"
  "check_$check" || failed+=("$check")
done
scripts/count-lines.py
[[ ${#failed[@]} -eq 0 ]] || die "lint found something in: ${failed[*]}"
echo "lint: clean"
