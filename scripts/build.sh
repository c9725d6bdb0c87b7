#!/usr/bin/env bash
# Installs what is missing, then configures and builds Vellum in build/.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/install-deps.sh"
cmake -S "$top" -B "$top/build" -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-RelWithDebInfo}" "$@" >/dev/null
cmake --build "$top/build" -j"$(nproc)"
