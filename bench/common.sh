# Common code of the benchmark scripts; source it with the project root as the current directory.
# shellcheck shell=bash
# shellcheck source=scripts/common.sh
source scripts/common.sh

bench_directory="$PWD/build/bench"
export HOME="$bench_directory/home" # keeps their saved state out of the user's home
export XDG_CONFIG_HOME="$HOME/.config" XDG_CACHE_HOME="$HOME/.cache"
export TMPDIR="$HOME/tmp"
mkdir -p "$XDG_CONFIG_HOME" "$XDG_CACHE_HOME" "$TMPDIR"

started=()
end_started() {
  [[ ${#started[@]} -eq 0 ]] || kill "${started[@]}" 2>/dev/null || true
}

# verdict WHAT VALUE LIMIT: prints a line of the table of limits. An exceeded limit fails the script
# only at its end, so that the later figures are printed too.
# shellcheck disable=SC2034 # the scripts end with it
exceeded=0
verdict() {
  local ok
  ok="$(awk -v value="$2" -v limit="$3" 'BEGIN { print value <= limit ? "ok" : "EXCEEDED" }')"
  printf '%s: %.2f (limit %s) %s\n' "$1" "$2" "$3" "$ok"
  # shellcheck disable=SC2034
  [[ $ok == ok ]] || exceeded=1
}

ratio() { awk -v a="$1" -v b="$2" 'BEGIN { print a / b }'; }

# fastest VALUE...: the run least disturbed by other work on the machine
fastest() { printf '%s\n' "$@" | sort -g | head -n 1; }

# median VALUE...
median() {
  local sorted
  mapfile -t sorted < <(printf '%s\n' "$@" | sort -g)
  echo "${sorted[$# / 2]}"
}
