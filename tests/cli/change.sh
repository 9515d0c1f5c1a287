# Functions for scripts that fetch, change and send catalogues. Source it with the folders of the
# programs and of the settings in $bin and $home.
# shellcheck shell=bash disable=SC2154

cli() { "$bin/zekview-cli" --dir "$home" "$@" 2>"$home/messages" </dev/null; }

fail() {
  echo "$1" >&2
  cat "$home/messages" >&2
  exit 1
}

# change KIND NODE FROM TO: fetches a catalogue, changes a line, sends it and fetches it again. The
# program itself also verifies every catalogue that it sends (VerifyAfterWrite).
change() {
  local kind=$1 node=$2 from=$3 to=$4
  cli get "$kind" "$node" >"$home/before" || fail "$kind $node: get"
  grep -q "$from" "$home/before" || fail "$kind $node: nothing to change"
  sed "s/$from/$to/" "$home/before" >"$home/after"
  cli check "$kind" "$node" "$home/after" >/dev/null || fail "$kind $node: check"
  cli put "$kind" "$node" "$home/after" || fail "$kind $node: put"
  grep -q kontrollerad "$home/messages" || fail "$kind $node: not verified"
  cli get "$kind" "$node" >"$home/again" || fail "$kind $node: get again"
  diff "$home/after" "$home/again" || fail "$kind $node: the change did not come back"
}

# fails KIND NODE [WORDS]: checks that a fetch fails and that its error message contains these
# words.
fails() {
  local status=0
  cli get "$1" "$2" >"$home/none" || status=$?
  [[ $status -eq 1 ]] || fail "$2 ended with $status"
  grep -q "${3:-$2}" "$home/messages" || fail "$2: not told: $3"
}
