#!/usr/bin/env bash
# headless.sh COMMAND...: runs it on a screen of its own, so that windows that open and take the
# focus neither need a display nor disturb anybody.
set -euo pipefail

unset WAYLAND_DISPLAY
export GDK_BACKEND=x11  # the toolkit would look for Wayland first
export NO_AT_BRIDGE=1   # and for an accessibility bus
export GTK_THEME=Adwaita GDK_SCALE=1
exec xvfb-run --auto-servernum --server-args="-screen 0 1600x1200x24 -dpi 96 -nolisten tcp -noreset" "$@"
