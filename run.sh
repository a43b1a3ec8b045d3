#!/bin/sh
# Builds the release and starts it.
#
#   ./run.sh              with a display the desktop program, without one the 2 pi pulse of self-induced transparency
#   ./run.sh ARGUMENTS    the desktop program, without a display the batch program, with these arguments
#
# Installs what is missing on a Debian system.
set -eu
start=$PWD
cd "$(dirname "$0")"
top=$PWD
. packaging/ensure-packages.sh
build=build/run

# build PROGRAM CMAKE_OPTIONS...
build() {
    program=$1
    shift
    cmake --preset release -B "$build" -DQUORVEX_BUILD_TESTS=OFF -DQUORVEX_WERROR=OFF "$@" --log-level=WARNING >&2
    cmake --build "$build" -j2 --target "$program" >&2
}

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    # shellcheck disable=SC2086
    ensure_packages $BUILD_PACKAGES $GUI_PACKAGES
    build quorvex-gui -DQUORVEX_BUILD_GUI=ON
    cd "$start"
    exec "$top/$build/src/quorvexGui/quorvex" "$@"
fi

# shellcheck disable=SC2086
ensure_packages $BUILD_PACKAGES
build quorvex-run -DQUORVEX_BUILD_GUI=OFF
program=$top/$build/src/quorvexRun/quorvex-run
if [ $# -gt 0 ]; then
    cd "$start"
    exec "$program" "$@"
fi
results=$start/resultats/self-induced-transparency
mkdir -p "$results"
echo "The 2 pi pulse of examples/self-induced-transparency; the log goes to $results/run.log" >&2
exec "$program" --plot -o "$results" -n 3000 examples/self-induced-transparency/2pi.xml >"$results/run.log"
