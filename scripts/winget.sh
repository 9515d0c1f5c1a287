#!/usr/bin/env bash
# winget.sh A.B.C WORD...: writes dist/winget, the manifest for the installers in dist. The variable
# ZEKVIEW_DOWNLOAD is the address of the folder from which they will be downloaded.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh

version="$1"
shift
folder="dist/winget"
address="${ZEKVIEW_DOWNLOAD:-https://example.invalid/zekview}"
rm -rf "$folder"
mkdir -p "$folder"

# manifest NAME TYPE: begins with the lines that all files share; the rest is standard input.
manifest() {
  {
    printf 'PackageIdentifier: ZekView.ZekView\nPackageVersion: %s\n' "$version"
    cat
    printf 'ManifestType: %s\nManifestVersion: 1.6.0\n' "$2"
  } >"$folder/ZekView.ZekView$1.yaml"
}

# description LANGUAGE TYPE SHORT
description() {
  manifest ".locale.$1" "$2" <<TEXT
PackageLocale: $1
Publisher: ZekView
PackageName: ZekView
License: Proprietary
ShortDescription: $3
TEXT
}

manifest "" version <<<"DefaultLocale: sv-SE"
description sv-SE defaultLocale "Visar och ändrar tidsstyrningar i ZEK1- och ZEK2-styrenheter"
description en-US locale "Shows and changes the time controls of ZEK1 and ZEK2 controllers"
{
  printf 'InstallerType: wix\nScope: machine\nUpgradeBehavior: install\nInstallers:\n'
  for word in "$@"; do
    installer="zekview-$version-$word.msi"
    architecture=x64
    [[ $word == win64 ]] || architecture=x86
    printf -- '- Architecture: %s\n  InstallerUrl: %s/%s\n  InstallerSha256: %s\n  ProductCode: "%s"\n' \
      "$architecture" "$address" "$installer" \
      "$(sha256sum "dist/$installer" | cut -c 1-64 | tr a-f A-F)" \
      "$(msiinfo export "dist/$installer" Property | sed -nE 's/^ProductCode\t([^\r]*)\r?$/\1/p')"
  done
} | manifest .installer installer
