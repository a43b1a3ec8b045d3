#!/bin/sh
# Prints the tables of docs/performance.md: bench/table.sh BUILD_DIRECTORY [PLAIN_RUNS]
# BUILD_DIRECTORY holds the preset bench. The solver's rates are medians of three runs; those of the plain form,
# which takes a quarter of an hour for all schemes, of PLAIN_RUNS, 1 if none is given.
set -eu
solver=$1/bench/quorvex_solver_bench
operations=$1/bench/quorvex_operations_bench
growth=$1/bench/quorvex_growth_bench
plainRuns=${2:-1}
transform=$1/bench/quorvex_transform_bench
memory=$1/bench/quorvex_memory_bench
plot=$1/bench/quorvex_plot_bench
desktop=$1/bench/quorvex_desktop_bench

echo "Machine: $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1), $(nproc) cores"
echo "Compiler: $(c++ --version | head -n 1)"
echo "Date: $(date +%F)"
echo
# For each scheme and level count, millions of node-steps a second; operations of the AVX-512 variant in one of
# them, and their share of what the core can do.
echo "| scheme | levels | plain form | baseline | AVX2 | AVX-512 | AVX2 / plain | AVX-512 / plain | operations | of the peak |"
echo "|---|---|---|---|---|---|---|---|---|---|"
# rates VARIANT FILTER REPETITIONS: lines of variant, scheme, levels and node-steps a second
# The plain form has no variants: its name here is none that the solver knows.
rates() {
    QUORVEX_INSTRUCTIONS=$1 "$solver" --benchmark_filter="^$2/" --benchmark_repetitions="$3" --benchmark_format=csv 2>/dev/null |
        awk -F, -v variant="$1" '/^"(solver|plain)\// && !/_(mean|median|stddev|cv)"/ {
            gsub(/"/, "", $1); split($1, name, "/"); sub("levels:", "", name[3])
            print variant, name[2], name[3], $NF + 0
        }'
}
{
    if [ -x "$operations" ]; then QUORVEX_INSTRUCTIONS=avx512 "$operations"; fi
    rates form plain "$plainRuns"
    for variant in baseline avx2 avx512; do rates $variant solver 3; done
} | awk '
    $1 == "peak" { peak = $2; next }
    $1 == "operations" { operations[$2 " | " $3] = $4; next }
    {
        key = $2 " | " $3
        if (!(key in seen)) { seen[key] = 1; order[++count] = key }
        value[$1, key, ++runs[$1, key]] = $4
    }
    # The one in the middle of the runs.
    function median(variant, key,    n, i, j, less) {
        n = runs[variant, key]
        for (i = 1; i <= n; ++i) {
            less = 0
            for (j = 1; j <= n; ++j) {
                less += value[variant, key, j] < value[variant, key, i] || (value[variant, key, j] == value[variant, key, i] && j < i)
            }
            if (less == int((n - 1) / 2)) return value[variant, key, i]
        }
    }
    END {
        for (i = 1; i <= count; ++i) {
            key = order[i]
            form = median("form", key); avx2 = median("avx2", key); avx512 = median("avx512", key)
            share = peak > 0 ? sprintf("%.0f | %.0f %%", operations[key], 100 * avx512 * operations[key] / peak) : " | "
            printf "| %s | %.2f | %.1f | %.1f | %.1f | %.1f | %.1f | %s |\n", key, form / 1e6,
                median("baseline", key) / 1e6, avx2 / 1e6, avx512 / 1e6, avx2 / form, avx512 / form, share
        }
        if (peak > 0) printf "\nThe peak: %.1f thousand million operations a second.\n", peak / 1e9
    }'
echo
"$growth"
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
