#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs a program on a desktop of its own: an X server, a session bus and a window manager, all of which end with it.
# Usage: on_a_desktop.sh PROGRAM [ARGUMENT…]
set -e
unset WAYLAND_DISPLAY WAYLAND_SOCKET QT_SCALE_FACTOR QT_STYLE_OVERRIDE DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS
runtime=$(mktemp -d)
trap 'rm -rf "$runtime"' EXIT
export QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR="$runtime" XDG_CACHE_HOME="$runtime" XDG_CURRENT_DESKTOP=
xvfb-run -a -s '-screen 0 1440x1000x24 -noreset' dbus-run-session -- sh -c '
  openbox --sm-disable &
  status=0
  "$@" || status=$?
  kill $!
  exit $status' sh "$@"
