#!/usr/bin/env bash
# Writes the API reference of the public headers, with the guides as its pages, into
# build/docs/api/html (open index.html there): scripts/apidoc.sh [output folder].
# A later `cmake --install build` installs it beside the other documentation.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh doxygen

out=${1:-build/docs/api}
# The installed headers are exactly those the client folder lists as public.
headers=$(sed -n '/^set(public_headers/,/^)/p' vms_sdk/client/CMakeLists.txt |
    sed -n 's#^ *\([A-Za-z0-9_]*\.h\)$#vms_sdk/client/\1#p' | tr '\n' ' ')
mkdir -p "$out"
{
    cat docs/Doxyfile
    echo "INPUT = $headers $(ls docs/*.md | tr '\n' ' ')"
    echo "OUTPUT_DIRECTORY = $out"
    echo "WARN_LOGFILE = $out/warnings.log"
} | doxygen -
echo "apidoc: $out/html/index.html ($(wc -l <"$out/warnings.log") warnings in $out/warnings.log)"
