#!/bin/sh
# Builds everything with the sanitizers on and runs every test: ./test.sh [CTEST ARGUMENTS]
# Installs what is missing on a Debian system.
set -eu
cd "$(dirname "$0")"
. packaging/ensure-packages.sh
# shellcheck disable=SC2086
ensure_packages $BUILD_PACKAGES $GUI_PACKAGES $TEST_PACKAGES $GUI_TEST_PACKAGES

cmake --preset debug
cmake --build --preset debug
exec ctest --preset debug "$@"
