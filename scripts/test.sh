#!/usr/bin/env bash
# Installs what is missing, builds Vellum and runs every test.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/build.sh" "$@"
cd "$top/build"
ctest --output-on-failure -j"$(nproc)" --timeout 300
