# What each captor saw of the light, from a table of quorvex-run --table FILE:
#
#   awk -f examples/pulse.awk [-v frequency=F] [-v dipole=D] [-v from=A] [-v until=B] FILE
#
# One line per captor and component of the field, for the times from A to B fs (all):
#   peak      largest |E|, V/m
#   fluence   EPS0 * C * sum of E^2 dt, J/m^2
#   centre    mean time weighted by E^2, fs
#   spectrum  |sum of E exp(i F t) dt|, V s/m: the pulse's amplitude at the frequency F, rad/s
#   phase     of that sum, in units of pi
#   area      2 D / HBAR * spectrum / pi: the area of a pulse with the carrier F and without chirp,
#             for the dipole D in C m

function absolute(x)
{
    return x < 0 ? -x : x
}

BEGIN {
    FS = "\t"
    pi = atan2(0, -1)
    if (!frequency) frequency = 1.25538e15
    if (!dipole) dipole = 1e-29
    if (!until) until = 1e30
}

NR == 1 {
    for (i = 3; i <= NF; i++)
        if ($i ~ /^E[0-9]/) {
            n++
            column[n] = i
            name[n] = $i
            sub(/ \(V\/m\)/, "", name[n])
        }
    next
}

NR == 2 { start = $2 }

{
    end = $2
    if ($2 < from * 1e-15 || $2 >= until * 1e-15) next
    c = cos(frequency * $2)
    s = sin(frequency * $2)
    for (k = 1; k <= n; k++) {
        e = $column[k]
        if (absolute(e) > peak[k]) peak[k] = absolute(e)
        real[k] += e * c
        imaginary[k] += e * s
        energy[k] += e * e
        moment[k] += e * e * $2
    }
}

END {
    dt = (end - start) / (NR - 2)
    printf "%-11s %11s %11s %9s %13s %8s %8s\n", "captor", "peak", "fluence", "centre", "spectrum",
        "phase", "area"
    for (k = 1; k <= n; k++)
        printf "%-11s %11.4e %11.4e %9.3f %13.6e %8.4f %8.5f\n", name[k], peak[k],
            8.85e-12 * 2.997e8 * energy[k] * dt,
            (energy[k] ? moment[k] / energy[k] * 1e15 : 0),
            sqrt(real[k]^2 + imaginary[k]^2) * dt, atan2(imaginary[k], real[k]) / pi,
            2 * dipole / 1.0546e-34 * sqrt(real[k]^2 + imaginary[k]^2) * dt / pi
}
