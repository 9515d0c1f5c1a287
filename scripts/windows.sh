#!/usr/bin/env bash
# windows.sh [win64|win32] [A.B.C]: builds the Windows programs (default: both) and packs them with
# their files, for use without installation and as an installer package, into dist/:
#   zekview-VERSION-win64.zip, zekview-A.B.C-win64.msi (also win32), winget/, SHA256SUMS
# A.B.C is the version of the packages, which must grow from release to release; the default is the
# program's own. The same commit gives the same bytes.
# ZEKVIEW_SIGN_COMMAND: run with the path of each program and installer, to sign it in place.
# ZEKVIEW_DOWNLOAD: the address below which the installers will be found, for winget.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

scripts/setup.sh run windows
version="$(sed -nE 's/^project\(ZekView VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)"
words=(win64 win32)
package="$version"
for argument in "$@"; do
  case "$argument" in
    win64 | win32) words=("$argument") ;;
    [0-9]*.[0-9]*.[0-9]*) package="$argument" ;;
    *) die "./dev windows has no option '$argument'." ;;
  esac
done
# The limits of Windows Installer.
part='([0-9]|[1-9][0-9]|1[0-9][0-9]|2[0-4][0-9]|25[0-5])'
[[ $package =~ ^$part\.$part\.[0-9]{1,5}$ ]] ||
  die "The version '$package' is not A.B.C with A and B below 256."
programs=(zekview zekview-cli zekview-sim)

# add_licences FOLDER WORD: the terms of what is linked into the programs, from the packages that
# were used, and the licences that they refer to.
add_licences() {
  local folder="$1" pair machine=x86-64
  [[ $2 == win64 ]] || machine=i686
  mkdir "$folder"
  for pair in wxWidgets:libwxgtk3.2-dev libical:libical-dev CLI11:libcli11-dev \
    "mingw-w64:mingw-w64-$machine-dev" "gcc:gcc-mingw-w64-${machine}-posix-runtime"; do
    sed 's/$/\r/' "/usr/share/doc/${pair#*:}/copyright" >"$folder/${pair%%:*}.txt"
  done
  for pair in GPL-3 LGPL-2 LGPL-2.1 MPL-2.0; do
    sed 's/$/\r/' "/usr/share/common-licenses/$pair" >"$folder/$pair.txt"
  done
}

# add_sums FOLDER: lists the SHA-256 sum of each file.
add_sums() {
  local files
  files="$(cd "$1" && find . -type f ! -name SHA256SUMS.txt | LC_ALL=C sort)"
  (cd "$1" && xargs -d '\n' sha256sum <<<"$files") | sed 's/$/\r/' >"$1/SHA256SUMS.txt"
}

# lay_out FOLDER BIN WORD: fills FOLDER with the content of the zip.
lay_out() {
  local folder="$1" bin="$2" strip=x86_64-w64-mingw32-strip program text
  [[ $3 == win64 ]] || strip=i686-w64-mingw32-strip
  rm -rf "$folder"
  mkdir -p "$folder/demo"
  for program in "${programs[@]}"; do
    # Without it, strip replaces the linker's fixed time by the present one.
    SOURCE_DATE_EPOCH=0 "$strip" -o "$folder/$program.exe" "$bin/$program.exe"
    scripts/sign.sh "$folder/$program.exe"
  done
  cp data/lang/zek_* data/ZEKView.INI "$folder/"
  cp -r data/demo/* "$folder/demo/"
  find "$folder" -name '.*' -type f -delete
  for text in packaging/windows/*; do sed 's/$/\r/' "$text" >"$folder/${text##*/}"; done
  add_licences "$folder/licences" "$3"
  add_sums "$folder"
}

# check_installer FOLDER MSI: compares the content, which also works where the package can't be run.
check_installer() {
  local unpacked="$1-unpacked"
  rm -rf "$unpacked"
  mkdir "$unpacked"
  msiextract -C "$unpacked" "$2" >/dev/null
  find "$unpacked" -name datadir.ini -delete
  diff -r "$1" "$(dirname "$(find "$unpacked" -name zekview.exe)")" || die "$2 lacks files."
  rm -r "$unpacked"
}

# make_installer FOLDER WORD MSI: from the content of the zip. Names in the package are ASCII, and
# demo.cmd would write into the folder of the programs.
make_installer() {
  local folder="$1-installed"
  rm -rf "$folder"
  cp -r "$1" "$folder"
  rm "$folder/demo.cmd"
  mv "$folder/LÄSMIG.txt" "$folder/LASMIG.txt"
  add_sums "$folder"
  scripts/msi.py "$folder" "$3" "$package" "$2"
  check_installer "$folder" "$3"
  scripts/sign.sh "$3"
}

mkdir -p dist
made=()
for word in "${words[@]}"; do
  configure "$word" OFF
  grep -qx "ZEKVIEW_PACKAGE_VERSION:STRING=$package" "build/$word/CMakeCache.txt" ||
    cmake "-DZEKVIEW_PACKAGE_VERSION=$package" "build/$word" >/dev/null
  cmake --build --preset "$word" --target "${programs[@]}"
  name="zekview-$version-$word"
  installer="zekview-$package-$word.msi"
  lay_out "build/$word/$name" "build/$word/bin" "$word"
  scripts/pack.py "build/$word/$name" "dist/$name.zip"
  make_installer "build/$word/$name" "$word" "dist/$installer"
  made+=("$name.zip" "$installer")
done
scripts/winget.sh "$package" "${words[@]}"
(cd dist && sha256sum "${made[@]}" winget/* | tee SHA256SUMS)
