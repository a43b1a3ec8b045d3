#!/bin/sh
# Looks at the packages that cpack has made: packaging/check-package.sh BUILD_DIRECTORY
# The archive is unpacked, its program run, and the .deb must hold the same files and name its libraries.
set -eu
build=$(cd "$1" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "check-package: $*" >&2; exit 1; }
only() { [ $# -eq 1 ] && [ -f "$1" ] || fail "one package is wanted, found: $*"; }

only "$build"/quorvex*.tar.gz
only "$build"/quorvex_*.deb
mkdir "$scratch/tree" "$scratch/deb"
tar -xzf "$build"/quorvex*.tar.gz -C "$scratch/tree" --strip-components=1
dpkg-deb -x "$build"/quorvex_*.deb "$scratch/deb"

for file in bin/quorvex-run share/man/man1/quorvex-run.1.gz share/doc/quorvex/README.md \
    share/doc/quorvex/docs/physics.md share/doc/quorvex/docs/file-formats.md \
    share/doc/quorvex/examples/self-induced-transparency/2pi.xml; do
    [ -f "$scratch/tree/$file" ] || fail "the archive lacks $file"
    [ -f "$scratch/deb/usr/$file" ] || fail "the .deb lacks usr/$file"
done
file "$scratch/deb/usr/bin/quorvex-run" | grep -q ELF || fail "quorvex-run is no program"
dpkg-deb -f "$build"/quorvex_*.deb Depends | grep -q libc6 || fail "the .deb names no libraries"
gzip -dc "$scratch/tree/share/man/man1/quorvex-run.1.gz" | grep -q '^\.TH QUORVEX-RUN' ||
    fail "the manual page is empty"

cd "$scratch"
"$scratch/deb/usr/bin/quorvex-run" --version
"$scratch/tree/bin/quorvex-run" "$scratch/tree/share/doc/quorvex/examples/self-induced-transparency/2pi.xml" \
    -n 300 -q -o results >log
[ "$(wc -l <results/tps.res)" -eq 300 ] || fail "the unpacked program did not run"
echo "check-package: the packages are sound"
