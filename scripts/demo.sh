# Functions for the demonstration, which has its own program directory and plant; source it.
# shellcheck shell=bash

# Builds the programs of the demonstration, without the tests and their packages.
build_demo() {
  scripts/setup.sh run
  configure release OFF
  cmake --build --preset release --target zekview zekview-sim
}

# prepare_demo DIRECTORY: copies languages, settings and the plant there. Newer files stay, so that
# a demonstration continues where the last one ended.
prepare_demo() {
  local directory="$1"
  mkdir -p "$directory"
  cp -ru data/lang/zek_* data/demo/. "$directory/"
}

# start_plant DIRECTORY [COMMAND...]: starts zekview-sim, or this command, with the plant in
# DIRECTORY on a free port. Writes the port into the settings and stops the plant when the script
# ends.
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

# keep_pictures DIRECTORY: converts the pictures of a tour to PNG; sets `taken` to their names.
keep_pictures() {
  shopt -s nullglob
  taken=("$1"/*.bmp)
  [[ ${#taken[@]} -gt 0 ]] || die "The tour took no pictures."
  mogrify -format png "${taken[@]}"
  rm "${taken[@]}"
  taken=("${taken[@]/%.bmp/.png}")
}
