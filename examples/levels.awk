# How the levels filled at each captor, from a table of quorvex-run --table FILE:
#
#   awk -f examples/levels.awk FILE
#
# One line per captor, system and level:
#   smallest, largest, last  population
#   rises     how often it went up through 1/2
#   period    mean time between these rises, fs

BEGIN { FS = "\t" }

NR == 1 {
    for (i = 3; i <= NF; i++) {
        split($i, part, /\[|\]/)
        if ($i ~ /^Rho_Bloch[0-9]+\[/ && part[2] == part[4]) {
            n++
            column[n] = i
            name[n] = $i
        }
    }
    next
}

{
    for (k = 1; k <= n; k++) {
        x = $column[k] + 0
        if (NR == 2 || x > largest[k]) largest[k] = x
        if (NR == 2 || x < smallest[k]) smallest[k] = x
        if (NR > 2 && before[k] < 0.5 && x >= 0.5) {
            last[k] = then + ($2 - then) * (0.5 - before[k]) / (x - before[k])
            if (!rises[k]++) first[k] = last[k]
        }
        before[k] = x
    }
    then = $2
}

END {
    printf "%-25s %9s %9s %9s %5s %9s\n", "population", "smallest", "largest", "last", "rises",
        "period"
    for (k = 1; k <= n; k++)
        printf "%-25s %9.6f %9.6f %9.6f %5d %9s\n", name[k], smallest[k], largest[k], before[k],
            rises[k],
            (rises[k] < 2 ? "-" : sprintf("%.4f", (last[k] - first[k]) / (rises[k] - 1) * 1e15))
}
