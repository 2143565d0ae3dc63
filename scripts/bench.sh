#!/usr/bin/env bash
# Builds the stream throughput benchmark in Release into build-bench/ and runs it: three
# repetitions of each size, then a table of their medians. Extra arguments go to the
# benchmark (e.g. --benchmark_filter=1048576, --vms_bench_bytes=67108864).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh

export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$PWD}"
cmake -S . -B build-bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF >/dev/null
cmake --build build-bench --parallel "$(nproc)" --target vms_bench_streams
build-bench/bench/vms_bench_streams --benchmark_repetitions=3 "$@"
