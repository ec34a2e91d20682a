#!/usr/bin/env bash
# Measures the start of the program against a bare Qt window, in one interleaved run on an X server
# of its own:   scripts/benchmark_start_up.sh [rounds]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh
. scripts/build.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${BENCHMARK_PACKAGES[@]}"
rounds=${1:-60}
build benchmark --target orbisgrid bare_window bare_connection start_up_benchmark

box=$(mktemp -d)
trap 'rm -rf "$box"; kill "$server" 2>/dev/null || true' EXIT
mkdir "$box/config"
cp Orbisgrid.ini Readme.txt "$box"
coproc XVFB { exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null; }
server=$XVFB_PID
read -r number <&"${XVFB[0]}"
export DISPLAY=":$number" DBUS_SESSION_BUS_ADDRESS=disabled: XDG_CONFIG_HOME="$box/config"
export ORBISGRID_PROGRAM_FOLDER="$box" XDG_RUNTIME_DIR="$box"
unset WAYLAND_DISPLAY

bin=build-benchmark/bin
"$bin/start_up_benchmark" window "$rounds" "$bin/bare_window text" "$bin/bare_window" "$bin/bare_window widgets" \
  "$bin/orbisgrid"
"$bin/start_up_benchmark" command "$rounds" "$bin/bare_window end" "$bin/bare_window load" \
  "$bin/bare_connection" "$bin/bare_connection child" "$bin/orbisgrid JO20AW FN42AA"
