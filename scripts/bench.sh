#!/usr/bin/env bash
# Builds every benchmark optimised (RelWithDebInfo: GCC 12 at -O3 trips a false -Wrestrict)
# into build-bench/, runs them one after the other and prints one table: workload, baseline,
# library, ratio, goal, met or missed. Each benchmark's own
# output (per-repetition figures, the stream table) goes to build-bench/bench-logs/.
#
#   ./scripts/bench.sh                 every benchmark, 3 runs each
#   ./scripts/bench.sh requests pushes only those (requests, pushes, streams, json, startup)
#   RUNS=5 ./scripts/bench.sh          more runs
#   BUILD_DIR=build ./scripts/bench.sh  an existing build directory, as it is configured
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh

all=(requests pushes streams json startup)
selected=("$@")
[[ ${#selected[@]} -gt 0 ]] || selected=("${all[@]}")
runs="${RUNS:-3}"

export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$PWD}"
build="${BUILD_DIR:-build-bench}"
if [[ -z ${BUILD_DIR:-} ]]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBUILD_TESTING=OFF >/dev/null
fi
targets=()
for name in "${selected[@]}"; do targets+=("vms_bench_$name"); done
cmake --build "$build" --parallel "$(nproc)" --target "${targets[@]}"

logs="$build/bench-logs"
mkdir -p "$logs"
rows=()
failed=0
for name in "${selected[@]}"; do
    echo "running vms_bench_$name ..." >&2
    args=(--runs="$runs")
    # The Google Benchmark programs count repetitions instead of child runs.
    [[ $name == streams || $name == json ]] && args=(--benchmark_repetitions="$runs")
    # Round by round, so that the library's and the raw reader's i-th runs, whose ratio counts,
    # share the machine's mood of the moment.
    [[ $name == streams ]] && args+=(--benchmark_enable_random_interleaving=true)
    if ! "$build/bench/vms_bench_$name" "${args[@]}" >"$logs/$name.txt" 2>&1; then
        echo "vms_bench_$name failed; see $logs/$name.txt" >&2
        failed=1
    fi
    while IFS= read -r line; do rows+=("$line"); done < <(grep '^| ' "$logs/$name.txt" || true)
done

echo
echo "Measured $(date -u '+%Y-%m-%d %H:%M UTC') ($(sed -n 's/^CMAKE_BUILD_TYPE:STRING=//p' "$build/CMakeCache.txt")) at $(git rev-parse --short HEAD 2>/dev/null || echo '?')," \
     "$(nproc) cores, $(lscpu 2>/dev/null | sed -n 's/^Model name: *//p' | head -1)," \
     "load average $(cut -d' ' -f1-3 /proc/loadavg 2>/dev/null || echo '?')"
echo
echo "| workload | baseline | library | ratio (range per run) | goal | |"
echo "|---|---|---|---|---|---|"
printf '%s\n' "${rows[@]}"
exit "$failed"
