#!/usr/bin/env bash
# wx-windows.sh win64|win32: builds the toolkit for Windows, once, and prints its directory.
set -euo pipefail
# shellcheck source=scripts/common.sh
source scripts/common.sh
# shellcheck source=scripts/debian-library.sh
source scripts/debian-library.sh

# Switch off the features that no form uses.
options=(-DwxBUILD_SHARED=OFF -DwxBUILD_INSTALL=ON)
for feature in AUI HTML PROPGRID RIBBON RICHTEXT STC WEBVIEW MEDIACTRL OPENGL XRC XML LIBTIFF \
  LIBJPEG LIBPNG EXPAT LIBLZMA ZLIB REGEX ARTPROVIDER_TANGO WXHTML_HELP SVG; do
  options+=("-DwxUSE_$feature=OFF")
done
debian_library wx "$1" wxwidgets3.2 libwxgtk3.2-dev debian "${options[@]}"
