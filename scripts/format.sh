#!/usr/bin/env bash
# Formats every C++ file.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

scripts/setup.sh lint
worktree_files '*.cpp' '*.h' | xargs -0 clang-format -i
