#!/usr/bin/env bash
# Runs every fuzzer for longer than the test suite does: scripts/fuzz.sh [seconds per fuzzer]
# (default 300). Builds them first in build-fuzz (clang, sanitizers). New inputs are kept in
# build-fuzz/fuzz/found/<harness> and each run's output in build-fuzz/fuzz/<harness>.log; a crash
# leaves its input in build-fuzz/fuzz/crash-* and the script stops with the end of the report.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-300}
./scripts/setup.sh
export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$PWD}"
cmake -S . -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang \
    -DVMS_SANITIZE=ON -DVMS_FUZZ=ON -DCMAKE_BUILD_TYPE=Debug -DBUILD_TESTING=OFF >/dev/null
harnesses=(frame_reader incoming_dispatch json_answer alarm stream sim_config)
cmake --build build-fuzz --parallel "$(nproc)" --target "${harnesses[@]/%/_fuzz}"

export ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
for h in "${harnesses[@]}"; do
    found=build-fuzz/fuzz/found/$h
    mkdir -p "$found"
    echo "fuzz.sh: $h for ${seconds}s"
    log=build-fuzz/fuzz/$h.log
    if ! (cd build-fuzz/fuzz && "./${h}_fuzz" -max_total_time="$seconds" -print_final_stats=1 \
        -timeout=20 "found/$h" "../../fuzz/corpus/$h") >"$log" 2>&1; then
        tail -n 60 "$log"
        exit 1
    fi
    grep -E "^(stat::number_of_executed_units|stat::peak_rss_mb)" "$log"
done
