# The envelope of the light, from a table of quorvex-run --table FILE:
#
#   awk -f examples/envelope.awk [-v frequency=F] [-v rows=N] [-v from=A] [-v until=B] FILE
#
# Each line stands for N lines of the table (50), from A to B fs (all): the middle of their times
# in fs, then for each captor and component the amplitude 2 |mean of E exp(i F t)| in V/m. N has to
# cover whole periods of the carrier; at 20 cells per wavelength and a CFL number of 0.8 a period
# takes 25 lines.

BEGIN {
    FS = "\t"
    if (!frequency) frequency = 1.25538e15
    if (!rows) rows = 50
    if (!until) until = 1e30
}

NR == 1 {
    line = sprintf("%9s", "t")
    for (i = 3; i <= NF; i++)
        if ($i ~ /^E[0-9]/) {
            column[++n] = i
            name = $i
            sub(/ \(V\/m\)/, "", name)
            line = line sprintf(" %11s", name)
        }
    print line
    next
}

{
    c = cos(frequency * $2)
    s = sin(frequency * $2)
    for (k = 1; k <= n; k++) {
        real[k] += $column[k] * c
        imaginary[k] += $column[k] * s
    }
    if ((NR - 1) % rows == 1) start = $2
    if ((NR - 1) % rows == 0) {
        t = (start + $2) / 2 * 1e15
        line = sprintf("%9.2f", t)
        for (k = 1; k <= n; k++) {
            line = line sprintf(" %11.4e", 2 * sqrt(real[k]^2 + imaginary[k]^2) / rows)
            real[k] = imaginary[k] = 0
        }
        if (t >= from && t < until) print line
    }
}
