#!/usr/bin/env bash
# tests/desktop/flow.sh PROGRAM BATCH_PROGRAM
#
# The program as its user meets it, from its start to its end, with keys and clicks on a screen of its own: a new
# project, fields in both forms, captors, a run, save, save as, load, and the question at the end. The files of the
# project must be what the user did, and a run of the loaded project must give the same bytes as the batch program.
# (A project keeps no number of steps: the loaded one takes the usual 2000.)
# SHOTS=DIRECTORY keeps a picture of each step.
set -euo pipefail
program=$(realpath "$1")
batch=$(realpath "$2")
# shellcheck source=desktop.sh
. "$(dirname "$0")/desktop.sh"

open_place

has() { [ -s "$1" ] || fail "$1 is not there or empty"; }
# value FILE KEY: the first value under that key
value() { sed -n "/mName=\"$2\"/{n;s/.*<MM_VALUE>\(.*\)<.MM_VALUE>.*/\1/p;q}" "$1"; }
is() { [ "$(value "$1" "$2")" = "$3" ] || fail "$2 in $1 is $(value "$1" "$2"), not $3"; }

"$program" >log 2>errors &
pid=$!
main='Simulation Quorvex'
window "$main"
shoot 01-start.png

press ctrl+n
window 'Créer un nouveau projet'
xdotool type vol
shoot 02-new.png
press Return
gone 'Créer un nouveau projet'
for file in project.dpj parameters.xml; do has "vol/$file"; done
[ -f vol/savingPlotterWindows.txt ] || fail "no list of plotter windows"

echo "forms"
window "$main"
press ctrl+p
window 'Paramètres'
press Tab Tab
enter 2.001e-5   # length of the domain
press Tab Tab Tab
enter 80         # where the medium ends
press Tab
shoot 03-physical.png
press space      # the captors
window 'Capteurs'
shoot 04-captors.png
press alt+F4
gone 'Capteurs'
window 'Paramètres'
press ctrl+Tab
enter 25         # points per wavelength
press Tab Tab Down Down Down Down   # the method: splitting
press Tab Tab
enter 4000       # steps
press Return
shoot 05-numerical.png

echo "run"
window "$main"
click 125 45     # the tool "Run"
for _ in $(seq 100); do
    [ -z "$(shown 'Résolution Quorvex...')" ] || { progress=seen && break; }
    [ -z "$(shown 'Information!')" ] || break
    sleep 0.02
done
shoot 06-progress.png
window 'Information!'
[ "${progress:-}" = seen ] || echo "(the run was over before its bar could be looked at)"
shoot 07-message.png
press Return
gone 'Information!'
for file in tps.res captors.res E_at_1.res parameters.xml~; do has "vol/$file"; done
[ "$(wc -l <vol/tps.res)" -eq 4000 ] || fail "not 4000 times"

echo "save, save as, load"
window "$main"
press ctrl+s
for _ in $(seq 50); do
    [ "$(value vol/parameters.xml mMethod)" != 4 ] || break
    sleep 0.1
done
is vol/parameters.xml mLength 2.001000e-05
is vol/parameters.xml mEndingPosition 8.000000e+01
is vol/parameters.xml mDiscretizationNumber 25
is vol/parameters.xml mMethod 4
press ctrl+u
window 'Enregistrer le projet sous'
enter copie       # below the present project, which the form proposes
shoot 08-save-as.png
press Return
gone 'Enregistrer le projet sous'
for file in project.dpj parameters.xml tps.res E_at_1.res; do has "vol/copie/$file"; done
cmp vol/tps.res vol/copie/tps.res
cmp vol/E_at_1.res vol/copie/E_at_1.res

window "$main"
press ctrl+o
window 'Ouvrir un projet'
shoot 09-question.png
press Return     # yes, save
window 'Ouvrir un autre projet'
enter "$work/vol/project.dpj"
shoot 10-load.png
press Return
gone 'Ouvrir un autre projet'
window 'Paramètres'
shoot 11-loaded.png
window "$main"
click 125 45     # the tool "Run"
window 'Information!'
press Return
gone 'Information!'
mkdir expected
cp vol/parameters.xml expected/
"$batch" -q -o expected expected/parameters.xml >batch.log
compared=0
for file in expected/*.res; do
    cmp "$file" "vol/$(basename "$file")"
    compared=$((compared + 1))
done
[ "$compared" -ge 8 ] || fail "only $compared result files"

echo "end"
window "$main"
press ctrl+q
window 'Quitter'
shoot 12-quit.png
press Return     # yes, save
wait "$pid" || { status=$?; cat errors >&2; fail "the program ended with status $status"; }
! grep -q 'Trying to delete object' log || fail "an object was deleted that is in use"
! grep -Ev 'XDG_RUNTIME_DIR|^$' errors || fail "the program complained"
echo "the flow is sound: $compared result files equal"
