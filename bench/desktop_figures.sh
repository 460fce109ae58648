#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Measures the desktop program on a display of its own. desktop_figures.sh BUILD_FOLDER [STARTS]
set -eu
here=$(dirname "$0")
build=$1
shift
exec "$here/../tests/desktop/on_a_display.sh" "$build/bench/kelp_desktop_figures" "$@"
