#!/usr/bin/env bash
# tests/desktop/plots.sh PROGRAM
#
# The results of a run as a physicist looks at them, with keys and clicks on a screen of its own: visualize, zoom, undo,
# redo, pan, fit, logarithm and spectrum, legends, options, pictures, and a project that comes back with its plots. The
# pictures must open in another program, and the loaded plots must hold what the saved ones held.
# SHOTS=DIRECTORY keeps a picture of each step.
set -euo pipefail
program=$(realpath "$1")
# shellcheck source=desktop.sh
. "$(dirname "$0")/desktop.sh"

open_place 1500x1000

main='Simulation Quorvex'
plot='Visualisation Quorvex'

# menu X ENTRY: of the plot's menu bar, by its place; entries are counted from 1
menu() {
    click "$1" 12
    for _ in $(seq "$2"); do press Down; done
    press Return
}
edit=80
tools=275
file=25

# save_as TITLE FILE: answers a file dialog
save_as() {
    window "$1"
    enter "$work/$2"
    press Return
    gone "$1"
    for _ in $(seq 50); do
        [ ! -s "$2" ] || return 0
        sleep 0.1
    done
    fail "$2 was not written"
}

# drag X1 Y1 X2 Y2: in the active window
drag() {
    xdotool mousemove --window "$present" "$1" "$2" mousedown 1
    sleep 0.1
    xdotool mousemove --window "$present" $((($1 + $3) / 2)) $((($2 + $4) / 2))
    sleep 0.1
    xdotool mousemove --window "$present" "$3" "$4"
    sleep 0.2
    xdotool mouseup 1
    sleep 0.3
}

# saved: saves the project; the plots' files in the order of the list
saved() {
    local former
    former=$(stat -c %Y.%i vol/savingPlotterWindows.txt)
    window "$main"
    press ctrl+s
    for _ in $(seq 100); do
        [ "$(stat -c %Y.%i vol/savingPlotterWindows.txt)" = "$former" ] || break
        sleep 0.1
    done
    sleep 0.3
    sed 's/ .*//' vol/savingPlotterWindows.txt
}

# value FILE KEY: the first value under that key
value() { sed -n "/mName=\"$2\"/{n;s/.*<MM_VALUE>\(.*\)<.MM_VALUE>.*/\1/p;q}" "$1"; }
# numbers FILE: a line with the numbers of each object; their order in the file follows numbers of the process
numbers() {
    awk -F '[<>]' '/<MM_CLASS / {line = ""} $3 ~ /^[-+.0-9e]+$/ {line = line " " $3} /<\/MM_CLASS>/ {print line}' "$1" | sort
}
is() { [ "$2" = "$3" ] || fail "$1 is $2, not $3"; }

"$program" >log 2>errors &
pid=$!
window "$main"
press ctrl+n
window 'Créer un nouveau projet'
xdotool type vol
press Return
gone 'Créer un nouveau projet'
window "$main"
click 125 45
window 'Information!'
press Return
gone 'Information!'

echo "visualize"
window "$main"
press ctrl+v
window 'Visualisation'
shoot 01-visualization.png
click 319 525
window "$plot"
shoot 02-plot.png
plots=$(saved)
is "the number of plots" "$(wc -w <<<"$plots")" 1
first=$(value "vol/$plots" mCurrentIndexBox)
is "the first view" "$first" 4 # one for each of the five captors

echo "views"
window "$plot"
drag 250 150 420 300
shoot 03-zoomed.png
press BackSpace
press alt+Right
press Right
xdotool mousemove --window "$present" 300 250 click 4
sleep 0.3
press Home
shoot 04-fit.png
plots=$(saved)
is "the view after zoom, undo, redo, pan, wheel and fit" "$(value "vol/$plots" mCurrentIndexBox)" $((first + 4))

echo "transforms"
window "$plot"
menu $tools 1
window 'Outils'
press Tab Tab space # logarithm of Y
press Tab Tab Tab Tab Tab Tab space
window 'Outils Quorvex - LOG.Y.'
shoot 05-logarithm.png
press alt+F4
gone 'Outils Quorvex - LOG.Y.'
window 'Outils'
press shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab space # no logarithm
press Tab Tab Tab space                                                # spectrum of Y
press Tab Tab Tab space
window 'Outils Quorvex - FFT.Y.'
shoot 06-spectrum.png
window 'Outils'
press Escape
gone 'Outils'

echo "legends and options"
window "$plot"
press ctrl+l
window 'Légendes'
shoot 07-legends.png
press Escape
gone 'Légendes'
window "$plot"
press ctrl+i
window 'Options du tracé'
shoot 08-options.png
press Escape
gone 'Options du tracé'
window "$plot"
press ctrl+g # no grid
plots=$(saved)
is "the number of plots" "$(wc -w <<<"$plots")" 2
is "the places of a plot and its transform" "$(cut -d ' ' -f 2- vol/savingPlotterWindows.txt | uniq | wc -l)" 1
is "the grid" "$(value "vol/${plots%%[[:space:]]*}" mGridPrinted)" 0

echo "pictures"
window "$plot"
menu $file 4
save_as 'Enregistrer comme image' picture.bmp
for kind in png pdf svg csv; do
    window "$plot"
    menu $tools 4
    save_as 'Exporter les courbes' "curves.$kind"
done
is "the saved picture" "$(identify -format %m picture.bmp | cut -c 1-3)" BMP
is "the exported picture" "$(identify -format %m curves.png)" PNG
is "the size of both" "$(identify -format %wx%h picture.bmp)" "$(identify -format %wx%h curves.png)"
[ "$(identify -format %k picture.bmp)" -gt 5 ] || fail "the picture shows nothing"
is "the document" "$(head -c 5 curves.pdf)" %PDF-
grep -q '<svg' curves.svg || fail "no SVG"
is "the lines of numbers" "$(wc -l <curves.csv)" 2001

echo "load"
mkdir before
for plot_file in $plots; do cp "vol/$plot_file" before/; done
window "$main"
press ctrl+o
window 'Ouvrir un projet'
press Return # yes, save
window 'Ouvrir un autre projet'
enter "$work/vol/project.dpj"
press Return
gone 'Ouvrir un autre projet'
window 'Paramètres'
window "$plot"
shoot 09-loaded.png
is "the number of windows" "$(xdotool search --onlyvisible --name "^$plot\$" | wc -l)" 2
again=$(saved)
is "the number of loaded plots" "$(wc -w <<<"$again")" 2
while read -r former present_file; do
    numbers "before/$former" >former.txt
    numbers "vol/$present_file" >present.txt
    [ "$(wc -w <former.txt)" -gt 4000 ] || fail "only $(wc -w <former.txt) numbers in $former"
    cmp former.txt present.txt || fail "the loaded plot differs from the saved one"
done < <(paste -d ' ' <(tr ' ' '\n' <<<"$plots") <(tr ' ' '\n' <<<"$again"))

echo "end"
window "$main"
press ctrl+q
window 'Quitter'
press Return # yes, save
wait "$pid" || { status=$?; cat errors >&2; fail "the program ended with status $status"; }
! grep -q 'Trying to delete object' log || fail "an object was deleted that is in use"
! grep -Ev 'XDG_RUNTIME_DIR|^$' errors || fail "the program complained"
echo "the plots are sound: $(wc -w <former.txt) numbers of the last one equal"
