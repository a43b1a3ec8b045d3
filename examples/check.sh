#!/bin/sh
# Measures the headline numbers of three examples from fresh runs and holds them against theory:
#
#   examples/check.sh PROGRAM
#
# PROGRAM is quorvex-run. Prints one line per number; fails when one leaves its bounds.
set -eu
if [ $# -ne 1 ]; then
    echo "usage: $0 PROGRAM" >&2
    exit 2
fi
case $1 in
*/*) program=$(cd "$(dirname "$1")" && pwd)/$(basename "$1") ;;
*) program=$1 ;;
esac
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
: >"$work/failures"

# run TABLE FILE STEPS OPTIONS...
run() {
    table=$work/$1
    file=$here/$2
    steps=$3
    shift 3
    "$program" "$file" -n "$steps" -q -o "$work/results" --table "$table" "$@" >"$work/log"
}

# pulse TABLE NODE COLUMN: a number of pulse.awk; 3 is the centre in fs, 4 the spectrum, 6 the area
pulse() {
    awk -f "$here/pulse.awk" "$work/$1" |
        awk -v name="E0 at $2" -v column="$3" \
            'substr($0, 1, 11) ~ "^" name " *$" { split(substr($0, 12), v); print v[column] }'
}

# level TABLE POPULATION COLUMN: a number of levels.awk; 2 is the largest value, 3 the last one,
# 4 the number of rises through 1/2, 5 the time between them in fs
level() {
    awk -f "$here/levels.awk" "$work/$1" |
        awk -v name="$2" -v column="$3" \
            'index($0, name " ") == 1 { split(substr($0, 26), v); print v[column] }'
}

# within LABEL VALUE LOW HIGH: a missing value or not-a-number is outside
within() {
    awk -v label="$1" -v value="$2" -v low="$3" -v high="$4" 'BEGIN {
        isNumber = value ~ /^-?[0-9]+(\.[0-9]+)?(e[-+]?[0-9]+)?$/
        isGood = isNumber && value + 0 >= low + 0 && value + 0 <= high + 0
        printf "%s  %-58s %10s  in %.5g .. %.5g\n", isGood ? "good" : "BAD ", label, value, low,
            high
        exit !isGood
    }' || echo "$1" >>"$work/failures"
}

# of EXPRESSION: its value, or a word for one that lacks a number
of() {
    awk "BEGIN { print $1 }" 2>/dev/null || echo missing
}

echo "Self-induced transparency"
for area in pi 2pi 4pi; do
    run "$area" self-induced-transparency/$area.xml 3000
done
run empty self-induced-transparency/2pi.xml 3000 --set mAtomsNumber=0
upper="Rho_Bloch0[1][1] at 145"
within "pi pulse: population left at 11 %" "$(level pi "$upper" 3)" 0.99 1
within "2 pi pulse: largest population at 11 %" "$(level 2pi "$upper" 2)" 0.99 1
within "2 pi pulse: population left at 11 %" "$(level 2pi "$upper" 3)" 0 0.005
within "2 pi pulse: rises of the population" "$(level 2pi "$upper" 4)" 1 1
within "4 pi pulse: population left at 11 %" "$(level 4pi "$upper" 3)" 0 0.005
within "4 pi pulse: rises of the population" "$(level 4pi "$upper" 4)" 2 2
for node in 145 665 1132; do
    within "2 pi pulse: area / pi at node $node" "$(pulse 2pi $node 6)" 1.99 2.01
done
# The 2 pi pulse sech(t / T) travels at the speed v, 1 / v = 1 / C + g T^2.
delay="1e15 * 1.25538e15 * 1e24 * 1e-29 ^ 2 / (2 * 8.85e-12 * 2.997e8 * 1.0546e-34) * 5e-15 ^ 2"
for node in 665 1132; do
    law=$(of "$delay * ($node - 132) * 7.5e-8")
    seen=$(of "$(pulse 2pi $node 3) - $(pulse empty $node 3)")
    within "2 pi pulse: delay at node $node, fs; theory $law" "$seen" "$(of "0.95 * $law")" \
        "$(of "1.05 * $law")"
done

echo "Absorber"
# Of the amplitude: the coherence decays at twice the transversal rate and half the decay rate.
alpha="1.25538e15 * 2.45e24 * 1e-29 ^ 2 / \
    (2 * 8.85e-12 * 2.997e8 * 1.0546e-34 * (2 * 2.5e13 + 0.5 * 1e10))"
for method in CN_P CN_dtP Split; do
    run absorber absorber/absorber.xml 7000 --method $method
    first=$(pulse absorber 265 4)
    for node in 532 798 1065; do
        law=$(of "exp(-$alpha * ($node - 265) * 7.5e-8)")
        within "$method: transmission to node $node; theory $law" \
            "$(of "$(pulse absorber $node 4) / $first")" "$(of "$law - 0.01")" "$(of "$law + 0.01")"
    done
done

echo "Rabi oscillation"
run rabi rabi/rabi.xml 6000
law=$(of "1e15 * 2 * atan2(0, -1) * 1.0546e-34 / (3.3131e8 * 1e-29)")
upper="Rho_Bloch0[1][1] at 99"
within "period, fs; theory $law" "$(level rabi "$upper" 5)" "$(of "0.995 * $law")" \
    "$(of "1.005 * $law")"
within "largest population of the upper level" "$(level rabi "$upper" 2)" 0.999 1

if [ -s "$work/failures" ]; then
    echo "outside the bounds: $(wc -l <"$work/failures")" >&2
    exit 1
fi
