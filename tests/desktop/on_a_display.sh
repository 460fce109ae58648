#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs a program on a display of its own, with a window manager: without one no window becomes active.
# on_a_display.sh PROGRAM [ARGUMENTS]; KELP_DISPLAY_SIZE=1280x800 makes it smaller
set -eu
folder=$(mktemp -d)
Xvfb -displayfd 3 -screen 0 "${KELP_DISPLAY_SIZE:-1920x1080}x24" -nolisten tcp 3>"$folder/display" 2>/dev/null &
server=$!
trap 'kill $server; rm -rf "$folder"' EXIT
for _ in $(seq 100); do
  [ -s "$folder/display" ] && break
  sleep 0.1
done
DISPLAY=:$(cat "$folder/display")
export DISPLAY QT_QPA_PLATFORM=xcb DBUS_SESSION_BUS_ADDRESS=disabled:
openbox >/dev/null 2>&1 &
sleep 0.5
"$@"
