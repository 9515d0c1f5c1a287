#!/usr/bin/env bash
# windows.sh [win64|win32]: builds the Windows programs (default: both) and packs them with their
# files into dist/zekview-VERSION-win64.zip and -win32.zip.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

scripts/setup.sh run windows
version="$(sed -nE 's/^project\(ZekView VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)"
programs=(zekview zekview-cli zekview-sim)

# lay_out FOLDER BIN STRIP: fills FOLDER with the content of the zip.
lay_out() {
  local folder="$1" bin="$2" strip="$3" program text
  rm -rf "$folder"
  mkdir -p "$folder/demo"
  for program in "${programs[@]}"; do "$strip" -o "$folder/$program.exe" "$bin/$program.exe"; done
  cp data/lang/zek_* data/ZEKView.INI "$folder/"
  cp -r data/demo/* "$folder/demo/"
  find "$folder" -name '.*' -type f -delete
  for text in packaging/windows/*; do sed 's/$/\r/' "$text" >"$folder/${text##*/}"; done
}

mkdir -p dist
for word in ${1:-win64 win32}; do
  configure "$word" OFF
  cmake --build --preset "$word" --target "${programs[@]}"
  name="zekview-$version-$word"
  strip=x86_64-w64-mingw32-strip
  [[ $word == win64 ]] || strip=i686-w64-mingw32-strip
  lay_out "build/$word/$name" "build/$word/bin" "$strip"
  scripts/pack.py "build/$word/$name" "dist/$name.zip"
  echo "dist/$name.zip: $(stat -c %s "dist/$name.zip") bytes"
done
