#!/bin/sh
# Prints the tables of docs/performance.md: bench/table.sh BUILD_DIRECTORY
# BUILD_DIRECTORY holds the preset bench. The solver's rates are the best of three runs, in million
# node-steps a second; the plain form, which takes minutes, runs once.
set -eu
solver=$1/bench/quorvex_solver_bench
transform=$1/bench/quorvex_transform_bench
memory=$1/bench/quorvex_memory_bench
plot=$1/bench/quorvex_plot_bench
desktop=$1/bench/quorvex_desktop_bench

echo "Machine: $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1), $(nproc) cores"
echo "Compiler: $(c++ --version | head -n 1)"
echo "Date: $(date +%F)"
echo
echo "| scheme | levels | plain form | baseline | AVX2 | AVX-512 | AVX2 / plain | AVX-512 / plain |"
echo "|---|---|---|---|---|---|---|---|"
# rates VARIANT FILTER REPETITIONS: lines of variant, scheme, levels and node-steps a second
rates() {
    QUORVEX_INSTRUCTIONS=$1 "$solver" --benchmark_filter="^$2/" --benchmark_repetitions="$3" --benchmark_format=csv 2>/dev/null |
        awk -F, -v variant="$1" '/^"(solver|plain)\// && !/_(mean|median|stddev|cv)"/ {
            gsub(/"/, "", $1); split($1, name, "/"); sub("levels:", "", name[3])
            print variant, name[2], name[3], $NF + 0
        }'
}
# The plain form has no variants: its name here is none that the solver knows.
{ rates form plain 1; for variant in baseline avx2 avx512; do rates $variant solver 3; done; } | awk '
    {
        key = $2 " | " $3
        if (!(key in seen)) { seen[key] = 1; order[++count] = key }
        if ($4 > best[$1, key]) best[$1, key] = $4
    }
    END {
        for (i = 1; i <= count; ++i) {
            form = best["form", order[i]]
            printf "| %s | %.1f | %.1f | %.1f | %.1f | %.1f | %.1f |\n", order[i], form / 1e6,
                best["baseline", order[i]] / 1e6, best["avx2", order[i]] / 1e6, best["avx512", order[i]] / 1e6,
                best["avx2", order[i]] / form, best["avx512", order[i]] / form
        }
    }'
echo
echo "A million nodes, two levels, one system:"
echo
"$memory" | sed 's/^/    /'

echo
echo "| values | fht_fft, us | plain form, us | ratio |"
echo "|---|---|---|---|"
"$transform" --benchmark_repetitions=20 --benchmark_min_time=0.02 --benchmark_enable_random_interleaving=true \
    --benchmark_format=csv 2>/dev/null | awk -F, '
    /^"(hartley|plain)\// && !/_(mean|median|stddev|cv)"/ {
        gsub(/"/, "", $1)
        split($1, name, "/ldn:")
        value = $4 + 0
        if (!((name[1], name[2]) in best) || value < best[name[1], name[2]]) best[name[1], name[2]] = value
    }
    END {
        for (ldn = 8; ldn <= 20; ++ldn) {
            h = best["hartley", ldn]; p = best["plain", ldn]
            printf "| 2^%d | %.1f | %.1f | %.1f |\n", ldn, h, p, p / h
        }
    }'

if [ -x "$desktop" ]; then
    echo
    echo "The desktop program, without a display, ms:"
    echo
    "$desktop" --benchmark_repetitions=5 --benchmark_report_aggregates_only=true --benchmark_format=csv 2>/dev/null |
        awk -F, '/_median"/ { gsub(/"/, "", $1); sub("_median", "", $1); sub("/(manual_time|real_time)", "", $1)
                              printf "    %s: %.0f\n", $1, $3 }'
fi

if [ -x "$plot" ]; then
    echo
    echo "Plots of 800 x 500, ms; QCustomPlot beside them:"
    for ratio in 1 2; do
        echo
        echo "| pixel ratio $ratio: points, curves | view | values | same view | QCustomPlot | next view | QCustomPlot |"
        echo "|---|---|---|---|---|---|---|"
        QT_SCALE_FACTOR=$ratio "$plot" --benchmark_format=csv 2>/dev/null | awk -F, '
            /^"draw/ {
                gsub(/"/, "", $1)
                split($1, name, "/")
                key = name[2] "/" name[3] "/" name[4] "/" name[5]
                if (!(key in seen)) { seen[key] = 1; order[++n] = key }
                time[key, name[1]] = $4
            }
            END {
                for (i = 1; i <= n; ++i) {
                    split(order[i], part, "[/:]")
                    printf "| %d, %d | %s | %s | %.2f | %.2f | %.2f | %.2f |\n", part[2], part[4],
                        part[6] ? "1/100" : "whole", part[8] ? "logarithms" : "plain",
                        time[order[i], "drawAgain<OurPlot>"], time[order[i], "drawAgain<OtherPlot>"],
                        time[order[i], "drawElsewhere<OurPlot>"], time[order[i], "drawElsewhere<OtherPlot>"]
                }
            }'
    done
fi
