#!/bin/sh
# Builds the release and runs it. For now that is the batch program on a published experiment:
#
#   ./run.sh              the 2 pi pulse of self-induced transparency
#   ./run.sh ARGUMENTS    quorvex-run with these arguments
#
# Installs what is missing on a Debian system.
set -eu
start=$PWD
cd "$(dirname "$0")"
top=$PWD
. packaging/ensure-packages.sh
# shellcheck disable=SC2086
ensure_packages $BUILD_PACKAGES

build=build/run
cmake --preset release -B "$build" -DQUORVEX_BUILD_TESTS=OFF -DQUORVEX_WERROR=OFF --log-level=WARNING >&2
cmake --build "$build" -j2 --target quorvex-run >&2
program=$top/$build/src/quorvexRun/quorvex-run

if [ $# -gt 0 ]; then
    cd "$start"
    exec "$program" "$@"
fi
results=$start/resultats/self-induced-transparency
mkdir -p "$results"
echo "The 2 pi pulse of examples/self-induced-transparency; the log goes to $results/run.log" >&2
exec "$program" --plot -o "$results" -n 3000 examples/self-induced-transparency/2pi.xml >"$results/run.log"
