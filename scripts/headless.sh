#!/usr/bin/env bash
# headless.sh COMMAND...: runs the command on its own virtual screen, so that its windows need no
# display and do not take the focus from a user.
set -euo pipefail

unset WAYLAND_DISPLAY
export GDK_BACKEND=x11  # the toolkit would try Wayland first,
unset SESSION_MANAGER   # contact the session manager
export NO_AT_BRIDGE=1   # and look for an accessibility bus
export GTK_THEME="${ZEKVIEW_THEME:-Adwaita}" GDK_SCALE="${ZEKVIEW_SCALE:-1}"
screen="$((1600 * GDK_SCALE))x$((1200 * GDK_SCALE))x24"
exec xvfb-run --auto-servernum --server-args="-screen 0 $screen -dpi 96 -nolisten tcp -noreset" "$@"
