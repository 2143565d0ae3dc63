#!/usr/bin/env bash
# The reference viewer against the bundled simulator, from a fresh clone: installs what the build
# needs, builds the library and the simulator (not the tests) into build/, installs them into
# build/viewer-prefix, builds examples/viewer against that installed copy like any application,
# and runs it. Arguments go to the viewer, e.g.
#   ./scripts/viewer.sh                         four live views of the simulator's cameras
#   ./scripts/viewer.sh --grid 9
#   ./scripts/viewer.sh --gateway /path/vms_dgw
# The simulator plays examples/viewer/site.json (nine cameras, a few alarms) unless
# VMS_DGW_SIM_CONFIG names another config (docs/dgw_sim.md).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh

if [ ! -f build/build.ninja ]; then
    echo "configuring build/ (the first run compiles the library: a few minutes)"
    cmake -S . -B build -G Ninja >/dev/null
fi
echo "building the library and the simulator (log: build/viewer_build.log)"
if ! { cmake --build build --parallel "$(nproc)" --target vms_client_sdk vms_dgw_sim vms_cli &&
       cmake --install build --prefix build/viewer-prefix &&
       cmake -S examples/viewer -B build/viewer -G Ninja -DCMAKE_PREFIX_PATH="$PWD/build/viewer-prefix" &&
       cmake --build build/viewer --parallel "$(nproc)"; } >build/viewer_build.log 2>&1; then
    tail -n 40 build/viewer_build.log
    exit 1
fi
export VMS_DGW_SIM_CONFIG="${VMS_DGW_SIM_CONFIG:-$PWD/examples/viewer/site.json}"
exec build/viewer/vms_viewer "$@"
