#!/usr/bin/env bash
# headless.sh COMMAND...: runs it on a screen of its own, so that windows that open and take the
# focus neither need a display nor disturb anybody.
set -euo pipefail

unset WAYLAND_DISPLAY
export GDK_BACKEND=x11  # the toolkit would look for Wayland first
unset SESSION_MANAGER   # nor ask a session to manage it
export NO_AT_BRIDGE=1   # and for an accessibility bus
export GTK_THEME=Adwaita GDK_SCALE="${ZEKVIEW_SCALE:-1}"
screen="$((1600 * GDK_SCALE))x$((1200 * GDK_SCALE))x24"
exec xvfb-run --auto-servernum --server-args="-screen 0 $screen -dpi 96 -nolisten tcp -noreset" "$@"
