#!/usr/bin/env bash
# docs/screenshots/make-screenshots.sh PROGRAM
#
# Takes the pictures in this directory anew, every window of the desktop program in French and in English, on a screen of
# its own. PROGRAM is an installed one, so that the paths in the pictures are nobody's own:
#   cmake --install ../../build/release --prefix /opt/quorvex && ./make-screenshots.sh /opt/quorvex/bin/quorvex
# SCALE=2 draws for a screen of high density, STYLE=fusion and the like are passed on, OUT=DIRECTORY leaves these
# pictures alone.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
top=$here/../..
program=$(realpath "$1")
data=$(realpath "$(dirname "$program")/../share/quorvex")
out=$(realpath "${OUT:-$here}")
# shellcheck source=../../tests/desktop/desktop.sh
. "$top/tests/desktop/desktop.sh"

# word KEY: the text in the present language
word() {
    if [ "$lang" = en ]; then
        echo "$1"
    else
        awk -F '\t' -v key="$1" '$1 == key {print $2}' "$top/src/data/linguist/words.tsv"
    fi
}

# manual: the title of its first page in the present language
manual() {
    local page=index.html
    [ "$lang" != fr ] || page=fr/$page
    sed -n 's|.*<title>\(.*\)</title>.*|\1|p' "$data/doc/quorvexGui/html/$page"
}

# choose MENU ENTRY: of the main window, counted from 0
choose() {
    window "$(word 'Quorvex Simulation')"
    click 25 10
    press Down # the first menu may mark no entry before that
    repeat Right "$1"
    repeat Down "$2"
    shoot "menu-$1-$lang.png"
    mogrify -crop 640x220+0+0 +repage "$SHOTS/menu-$1-$lang.png"
    press Return
    sleep 0.5
}

# detail KEY FILE: presses the button that has the focus, takes the window it opens, closes it
detail() {
    press space
    window "$(word "$1")"
    shoot "$2-$lang.png" "$(word "$1")"
    press alt+F4
    gone "$(word "$1")"
    window "$(word 'Options Window')"
}

# entry X NUMBER: of a menu of the plot, by its place; entries that can be chosen are counted from 1
entry() {
    window "$(word 'Quorvex Visualization')"
    click "$1" 12
    repeat Down "$2"
    press Return
}

# The 2 pi pulse at three captors, and the windows around it.
plots() {
    local visualization plot edit=80 tools=275
    [ "$lang" = fr ] || edit=57 tools=193
    visualization=$(word 'Visualization Window')
    plot=$(word 'Quorvex Visualization')
    window "$parameters"
    press alt+F4
    window "$main"
    press ctrl+v
    window "$visualization"
    shoot "visualization-$lang.png" "$visualization"
    # The first and the last captor stand at the ends, outside the medium.
    click 70 73
    press Tab Tab Tab Tab space
    click 70 73
    press End Tab Tab Tab Tab space
    click 319 525
    window "$plot"
    shoot "plot-$lang.png" "$plot"
    entry $tools 1
    window "$(word 'Tools Window')"
    shoot "tools-$lang.png" "$(word 'Tools Window')"
    press Escape
    entry $edit 4
    window "$(word 'Plotter Options Window')"
    shoot "plot-options-$lang.png" "$(word 'Plotter Options Window')"
    press Escape
    entry $edit 6
    window "$(word 'Legends Window')"
    shoot "legends-$lang.png" "$(word 'Legends Window')"
    press Escape
}

repeat() { for _ in $(seq 1 "$2"); do press "$1"; done; }

tour() {
    lang=$1
    local arguments=()
    if [ "$lang" = en ]; then
        sed "s|@DATA@|$data|" "$here/english.xml" >english.xml
        arguments=(english.xml)
    fi
    "$program" ${STYLE:+-style "$STYLE"} "${arguments[@]}" >log 2>&1 &
    local pid=$!
    local main parameters
    main=$(word 'Quorvex Simulation')
    parameters=$(word 'Options Window')
    window "$main"
    press ctrl+n
    window "$(word 'Create a New Project')"
    xdotool type pulse
    shoot "new-project-$lang.png" "$(word 'Create a New Project')"
    press Return
    gone "$(word 'Create a New Project')"
    window "$main"
    shoot "main-window-$lang.png" "$main"
    click 25 10
    shoot "menu-0-$lang.png"
    mogrify -crop 640x220+0+0 +repage "$SHOTS/menu-0-$lang.png"
    press Escape Escape

    window "$main"
    press ctrl+p
    window "$parameters"
    shoot "physical-data-$lang.png" "$parameters"
    repeat Tab 6
    detail 'Captors Window' captors
    repeat Tab 3
    detail 'Level Frequencies Window' frequencies
    press Tab
    detail 'Initial Density Window' densities
    press Tab
    detail 'Initial Polarizations Window' polarizations
    repeat Tab 2
    detail 'Longitudinal Relaxation Matrix Window' rates
    press ctrl+Tab
    repeat Tab 2
    repeat Down 4
    repeat Tab 2
    enter 300000
    press Return
    shoot "numerical-data-$lang.png" "$parameters"
    press ctrl+Tab
    repeat shift+Tab 2
    press Down Tab Tab Tab
    detail 'Equilibrium Vector Window' equilibrium

    window "$main"
    click 125 45
    window "$(word 'Quorvex Solving')..."
    sleep 2
    shoot "progress-$lang.png" "$(word 'Quorvex Solving')..."
    window "$(word Information)!"
    shoot "finished-$lang.png" "$(word Information)!"
    press Return

    window "$parameters"
    press ctrl+Tab
    enter 5
    press Return
    window "$main"
    click 125 45
    window "$(word 'Check of the Problem')"
    shoot "check-$lang.png" "$(word 'Check of the Problem')"
    press Escape

    choose 1 1
    window "$(word 'Project Description')"
    press ctrl+b
    xdotool type --delay 10 'Two levels, a pulse of 30 fs'
    press ctrl+b
    press Return
    xdotool type --delay 10 'Seen by three captors, 300000 time steps.'
    shoot "text-$lang.png" "$(word 'Project Description')"
    press ctrl+s alt+F4
    gone "$(word 'Project Description')"
    choose 1 2
    window "$(word 'Preferences Window')"
    shoot "preferences-$lang.png" "$(word 'Preferences Window')"
    press Escape alt+F4
    choose 4 0
    window "$(manual)"
    shoot "help-$lang.png" "$(manual)"
    press ctrl+q
    gone "$(manual)"
    choose 4 1
    window "$(word About)"
    shoot "about-$lang.png" "$(word About)"
    press Escape
    choose 0 3
    window "$(word 'Save As Project')"
    shoot "save-as-$lang.png" "$(word 'Save As Project')"
    press alt+F4
    choose 0 1
    window "$(word 'Load Project')"
    shoot "question-$lang.png" "$(word 'Load Project')"
    press Tab Return
    window "$(word 'Load a New Project')"
    shoot "load-$lang.png" "$(word 'Load a New Project')"
    enter "$work/2pi/project.dpj"
    press Return
    gone "$(word 'Load a New Project')"
    plots
    kill "$pid"
    wait "$pid" || true
}

# The paths and the home directory that the pictures show are nobody's own either.
work=/tmp/quorvex
mkdir "$work"
SHOTS=$work/shots
open_screen "${SCREEN:-1280x1024}"
trap 'close_screen; cp "$SHOTS/failed.png" "${TMPDIR:-/tmp}/screenshots-failed.png" 2>/dev/null; rm -rf "$work"' EXIT
export HOME=$work XDG_RUNTIME_DIR=$work/run XDG_CONFIG_HOME=$work/config QT_SCALE_FACTOR=${SCALE:-1}
unset QT_QPA_PLATFORM
mkdir -m 700 "$work/run" "$SHOTS"
batch=$(dirname "$program")/quorvex-run
"$batch" -q --write-project "$work/2pi" "$top/examples/self-induced-transparency/2pi.xml" >/dev/null
"$batch" -q -n 3000 "$work/2pi" >/dev/null
for language in ${LANGUAGES:-fr en}; do
    mkdir "$work/$language"
    cd "$work/$language"
    tour "$language"
done
mogrify -strip +set date:create +set date:modify -colors 256 "$SHOTS"/*.png
cp "$SHOTS"/*.png "$out"
if [ "$out" = "$here" ]; then
    # The manual shows some of them.
    for picture in "$top"/src/data/doc/quorvexGui/html/images/*.png; do
        [ ! -f "$SHOTS/${picture##*/}" ] || cp "$SHOTS/${picture##*/}" "$picture"
    done
fi
echo "$(find "$SHOTS" -name '*.png' | wc -l) pictures"
