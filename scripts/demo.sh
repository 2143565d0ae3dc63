#!/usr/bin/env bash
# Builds the library, installs it into build/prefix and runs the example application that
# is built against the installed package, with the gateway simulator as its gateway.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh

cmake -S . -B build -G Ninja >/dev/null
cmake --build build --parallel "$(nproc)"
cmake --install build --prefix build/prefix >/dev/null
cmake -S examples/consumer -B build/consumer -G Ninja -DCMAKE_PREFIX_PATH="$PWD/build/prefix" >/dev/null
cmake --build build/consumer
build/consumer/vms_consumer "${1:-$PWD/build/prefix/bin/vms_dgw_sim}"
