#!/bin/sh
# Builds the release and starts it.
#
#   ./run.sh              with a display the desktop program, without one the 2 pi pulse of self-induced transparency
#                         and a picture of it
#   ./run.sh ARGUMENTS    the desktop program, without a display the batch program, with these arguments
#
# Installs what is missing on a Debian system.
set -eu
start=$PWD
cd "$(dirname "$0")"
top=$PWD
. packaging/ensure-packages.sh
build=build/run

# build ON|OFF PROGRAM...    with or without the libraries of windows
build() {
    cmake --preset release -B "$build" -DQUORVEX_BUILD_TESTS=OFF -DQUORVEX_WERROR=OFF -DQUORVEX_BUILD_GUI="$1" \
        --log-level=WARNING >&2
    shift
    cmake --build "$build" -j2 --target "$@" >&2
}

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    # shellcheck disable=SC2086
    ensure_packages $BUILD_PACKAGES $GUI_PACKAGES
    build ON quorvex-gui
    cd "$start"
    exec "$top/$build/src/quorvexGui/quorvex" "$@"
fi

run=$top/$build/src/quorvexRun/quorvex-run
if [ $# -gt 0 ]; then
    # shellcheck disable=SC2086
    ensure_packages $BUILD_PACKAGES
    build OFF quorvex-run
    cd "$start"
    exec "$run" "$@"
fi

# shellcheck disable=SC2086
ensure_packages $BUILD_PACKAGES $GUI_PACKAGES
build ON quorvex-run quorvex-plot
results=$start/resultats/self-induced-transparency
mkdir -p "$results"
echo "The 2 pi pulse of examples/self-induced-transparency; the log goes to $results/run.log" >&2
"$run" --plot -o "$results" -n 3000 examples/self-induced-transparency/2pi.xml >"$results/run.log"
"$top/$build/src/quorvexPlot/quorvex-plot" "$results" -o "$results/2pi.png"
echo "The field at the captors is drawn in $results/2pi.png" >&2
