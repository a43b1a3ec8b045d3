#!/bin/sh
# Makes the expected files of every scenario anew.
#
#   tests/golden/update.sh PROGRAM
#
# PROGRAM is the built quorvex-reference. Nothing is built here.
set -eu

if [ $# -ne 1 ] || [ ! -x "$1" ]; then
    echo "usage: $0 PATH_OF_QUORVEX_REFERENCE" >&2
    exit 2
fi
case $1 in
/*) program=$1 ;;
*) program=$PWD/$1 ;;
esac

cd "$(dirname "$0")/scenarios"
for scenario in */scenario.txt; do
    name=$(dirname "$scenario")
    fresh=$name/expected.new
    rm -rf "$fresh"
    if ! "$program" "$scenario" "$fresh"; then
        rm -rf "$fresh"
        echo "$0: $name failed, its expected files stay as they were" >&2
        exit 1
    fi
    rm -rf "$name/expected"
    mv "$fresh" "$name/expected"
done
