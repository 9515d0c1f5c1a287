# The demonstration: a program directory of its own and a simulated plant; sourced.
# shellcheck shell=bash

# Builds what a demonstration takes and nothing of the tests, which have packages of their own.
build_demo() {
  scripts/setup.sh run
  configure release OFF
  cmake --build --preset release --target zekview zekview-sim
}

# Lays out DIRECTORY as a program directory: languages, settings and the plant. What is newer there
# stays, so that a demonstration goes on where the last one ended.
prepare_demo() {
  local directory="$1"
  mkdir -p "$directory"
  cp -ru data/lang/zek_lang.* data/demo/. "$directory/"
}

# start_plant DIRECTORY [COMMAND...]: starts the plant there on a free port, with the program
# zekview-sim or this command, writes the port into the settings, and stops the plant again when the
# script ends.
start_plant() {
  local directory="$1" port
  shift
  [[ $# -gt 0 ]] || set -- build/bin/zekview-sim
  exec {plant_output}< <(exec "$@" --port 0 --plant "$directory/plant" --keep)
  plant=$!
  trap 'kill "$plant" 2>/dev/null && wait "$plant" || true' EXIT
  read -r -t 20 port <&"$plant_output" || die "The simulated plant did not start."
  [[ $port =~ ([0-9]+)$ ]] || die "The simulated plant gave no port: $port"
  LC_ALL=C sed -i -E "s/127\.0\.0\.1:[0-9]+/127.0.0.1:${BASH_REMATCH[1]}/" "$directory/ZEKView.INI"
}

# keep_pictures DIRECTORY: makes the pictures of a tour PNG files; `taken` are their names.
keep_pictures() {
  shopt -s nullglob
  taken=("$1"/*.bmp)
  [[ ${#taken[@]} -gt 0 ]] || die "The tour took no pictures."
  mogrify -format png "${taken[@]}"
  rm "${taken[@]}"
  taken=("${taken[@]/%.bmp/.png}")
}
