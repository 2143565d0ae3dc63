#!/usr/bin/env bash
# The whole SDK at work in one command, from a fresh clone: installs what the build needs,
# builds only the command-line application and the gateway simulator (not the tests), and runs
# the guided tour against the simulator. Arguments go to vms_cli, e.g.
#   ./scripts/demo.sh                      the tour
#   ./scripts/demo.sh --gateway /path/vms_dgw demo
#   ./scripts/demo.sh call get_presets_req channelId.devId=cam-2 channelId.channelIndex=1
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh

if [ ! -f build/build.ninja ]; then
    echo "configuring build/ (the first run compiles the library: a few minutes)"
    cmake -S . -B build -G Ninja >/dev/null
fi
echo "building vms_cli and vms_dgw_sim (log: build/demo_build.log)"
if ! cmake --build build --parallel "$(nproc)" --target vms_cli vms_dgw_sim >build/demo_build.log 2>&1; then
    tail -n 40 build/demo_build.log
    exit 1
fi
if [ $# -eq 0 ]; then
    set -- demo
fi
exec build/tools/vms_cli/vms_cli "$@"
