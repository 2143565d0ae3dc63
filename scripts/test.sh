#!/usr/bin/env bash
# Builds and runs every test twice: an ordinary build, then the whole suite again built by
# clang with AddressSanitizer and UndefinedBehaviorSanitizer, the fuzzers included (a short run
# of each is a test there). Installs what it needs first.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh

jobs=$(nproc)
# Paths relative to the checkout, so a fresh clone elsewhere still finds its objects in ccache.
export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$PWD}"
# Debug information names the build folder; without this every clone would miss the cache.
export CCACHE_NOHASHDIR="${CCACHE_NOHASHDIR:-1}"
run_suite() {
    local dir=$1; shift
    cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
    cmake --build "$dir" --parallel "$jobs"
    ctest --test-dir "$dir" --output-on-failure --parallel "$jobs"
}

run_suite build
ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    run_suite build-asan -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang \
        -DVMS_SANITIZE=ON -DVMS_FUZZ=ON -DCMAKE_BUILD_TYPE=Debug
