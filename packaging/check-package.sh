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

for file in bin/quorvex bin/quorvex-run bin/quorvex-plot \
    share/man/man1/quorvex.1.gz share/man/man1/quorvex-run.1.gz share/man/man1/quorvex-plot.1.gz \
    share/applications/quorvex.desktop share/metainfo/org.example.quorvex.metainfo.xml share/mime/packages/quorvex.xml \
    share/icons/hicolor/48x48/apps/quorvex.png share/icons/hicolor/scalable/apps/quorvex.svg \
    share/icons/hicolor/scalable/mimetypes/application-x-quorvex-project.svg \
    share/quorvex/linguist/dictionary.xml share/quorvex/linguist/qt_fr.qm share/quorvex/icons/cheval.png \
    share/quorvex/icons/home.xpm share/quorvex/icons/axes.gif share/quorvex/icons/quorvex-48.png \
    share/quorvex/doc/quorvexGui/html/about.txt \
    share/doc/quorvex/copyright share/doc/quorvex/changelog.gz share/doc/quorvex/README.md share/doc/quorvex/docs/physics.md share/doc/quorvex/docs/file-formats.md \
    share/doc/quorvex/examples/self-induced-transparency/2pi.xml; do
    [ -f "$scratch/tree/$file" ] || fail "the archive lacks $file"
    [ -f "$scratch/deb/usr/$file" ] || fail "the .deb lacks usr/$file"
done
for program in quorvex quorvex-run quorvex-plot; do
    file "$scratch/deb/usr/bin/$program" | grep -q ELF || fail "$program is no program"
done
for library in libc6 libqt6widgets6 qt6-qpa-plugins; do
    dpkg-deb -f "$build"/quorvex_*.deb Depends | grep -q "$library" || fail "the .deb does not name $library"
done
for program in run plot; do
    gzip -dc "$scratch/tree/share/man/man1/quorvex-$program.1.gz" | grep -qi "^\.TH QUORVEX-$program" ||
        fail "the manual page of quorvex-$program is empty"
done

# The tools of the desktop and of Debian judge what the .deb would install.
if command -v desktop-file-validate >/dev/null; then
    complaints=$(desktop-file-validate "$scratch/deb/usr/share/applications/quorvex.desktop")
    [ -z "$complaints" ] || fail "$complaints"
fi
if command -v appstreamcli >/dev/null; then
    appstreamcli validate-tree --no-net "$scratch/deb" || fail "the metadata are faulty"
fi
if command -v lintian >/dev/null; then
    complaints=$(lintian --tag-display-limit 0 "$build"/quorvex_*.deb) || fail "$complaints"
    [ -z "$complaints" ] || fail "$complaints"
fi

cd "$scratch"
"$scratch/deb/usr/bin/quorvex-run" --version
"$scratch/tree/bin/quorvex-run" "$scratch/tree/share/doc/quorvex/examples/self-induced-transparency/2pi.xml" \
    -n 300 -q -o results >log
[ "$(wc -l <results/tps.res)" -eq 300 ] || fail "the unpacked program did not run"
for program in "$scratch/tree/bin/quorvex-plot" "$scratch/deb/usr/bin/quorvex-plot"; do
    rm -f 2pi.png
    env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$program" results -o 2pi.png --density 1,1 2>plot.log ||
        fail "quorvex-plot: $(cat plot.log)"
    [ ! -s plot.log ] || fail "quorvex-plot complained: $(cat plot.log)"
    file 2pi.png | grep -q 'PNG image data, 800 x 500' || fail "quorvex-plot drew: $(file 2pi.png)"
done

# The desktop program waits for its user. It finds its data beside itself: what it lacks it would name.
status=0
QT_QPA_PLATFORM=offscreen timeout 5 "$scratch/deb/usr/bin/quorvex" >desktop.log 2>&1 || status=$?
[ "$status" -eq 124 ] || fail "quorvex ended by itself with status $status"
! grep ERROR desktop.log || fail "quorvex complained"
echo "check-package: the packages are sound"
