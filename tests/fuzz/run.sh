#!/usr/bin/env bash
# tests/fuzz/run.sh BUILD SECONDS [TARGET...]
#
# Runs each fuzz target, or those that are named, for so many seconds. What they find out stays in
# BUILD/fuzz: grown corpora, logs, and the inputs that a target did not survive. Status 1 when there are any.
set -euo pipefail

if [ $# -lt 2 ]; then
    echo "usage: $0 BUILD SECONDS [TARGET...]" >&2
    exit 2
fi
sources=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
seconds=$2
shift 2
if [ $# -eq 0 ]; then
    set -- numberText metaModelFile dictionaryFile matrixFile resultFiles keywordFile problemFile
fi

export ASAN_OPTIONS=handle_sigfpe=0 UBSAN_OPTIONS=print_stacktrace=1
memory=/dev/shm
[ -w $memory ] || memory=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d "$memory/quorvex-fuzz.XXXXXX")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

# Longest input, and the file of words that the fuzzer may put into one.
limits() {
    case $1 in
    numberText) echo 256 numbers ;;
    metaModelFile) echo 8192 metaModel ;;
    dictionaryFile) echo 4096 words ;;
    matrixFile) echo 4096 numbers ;;
    resultFiles) echo 8192 results ;;
    keywordFile) echo 4096 keywords ;;
    problemFile) echo 12288 metaModel ;;
    *)
        echo "there is no target $1" >&2
        return 1
        ;;
    esac
}

run() {
    local target=$1 length=$2 words=$3
    local program="$build/tests/fuzz/quorvex_fuzz_$target"
    local grown="$build/fuzz/corpus/$target" found="$build/fuzz/found/$target" log="$build/fuzz/$target.log"
    mkdir -p "$grown" "$found"
    local outcome=clean
    "$program" -max_total_time="$seconds" -rss_limit_mb=2048 -timeout=25 -max_len="$length" \
        -dict="$sources/dictionaries/$words.dict" -artifact_prefix="$found/" -print_final_stats=1 \
        "$grown" "$sources/corpus/$target" >"$log" 2>&1 || outcome="FAILED, see $log and $found"
    local runs rate reached
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    reached=$(sed -n 's/.* cov: \([0-9]*\) ft: \([0-9]*\) .*/\1 edges, \2 features/p' "$log" | tail -n 1)
    echo "$target: ${runs:-no} runs, ${rate:-0} a second, ${reached:-nothing reached}: $outcome"
    [ "$outcome" = clean ]
}

status=0
for target in "$@"; do
    limit=$(limits "$target")
    # shellcheck disable=SC2086 # two words
    run "$target" $limit || status=1
done
exit $status
