#!/bin/sh
# Makes the icons from their drawings in svg/:
#
#   ./make-icons.sh              here, over the ones that are kept under version control
#   ./make-icons.sh DIRECTORY    there, to compare them
#
# The build takes the icons as they are; only a changed drawing needs this script. The same versions of the
# tools write the same bytes each time.
set -eu
cd "$(dirname "$0")"
out=${1:-.}

missing=
command -v rsvg-convert >/dev/null 2>&1 || missing="$missing librsvg2-bin"
command -v convert >/dev/null 2>&1 || missing="$missing imagemagick"
if [ -n "$missing" ]; then
    echo "Please install the Debian packages:$missing" >&2
    exit 1
fi

PNG="filenew fileopen filesave print editundo editredo editcopy editcut editpaste textunder textitalic textbold
     textleft textright textcenter cheval visu"
GIF="axes grid zoomin zoomout zoomselect zoomfit north south right left"
XPM="back forward home"

# The colours of the drawings: the lines, the accent, and the light rim and paper that part both from a dark bar.
grey='#404040'
teal='#0b7a75'
light='#f5f5f5'

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$out"

# Thirty colours: the three above and the shades between them that smooth the edges inside a drawing.
convert -size 1x12 "gradient:$grey-$light" "gradient:$teal-$light" -size 1x9 "gradient:$grey-$teal" -append \
    -depth 8 -unique-colors "$work/palette.png"

# draw NAME SIZE FILE
draw() { rsvg-convert --width "$2" --height "$2" --output "$3" "svg/$1.svg"; }

# reduce NAME FILE: palette colours only, and each pixel either opaque or transparent, for the formats that have no
# partial transparency.
reduce() {
    draw "$1" 96 "$work/$1.png"
    convert "$work/$1.png" \
        \( -clone 0 -alpha extract -threshold 50% \) \
        \( -clone 0 -alpha off +dither -remap "$work/palette.png" \) \
        -delete 0 +swap -alpha off -compose CopyOpacity -composite \
        -background "$light" -alpha background -strip "$2"
}

for name in $PNG; do draw "$name" 96 "$out/$name.png"; done
for name in $GIF; do reduce "$name" "$out/$name.gif"; done
for name in $XPM; do reduce "$name" "$out/$name.xpm"; done

# The program itself, for the desktop entry.
cp svg/quorvex.svg "$out/quorvex.svg"
for size in 48 256; do draw quorvex "$size" "$out/quorvex-$size.png"; done
