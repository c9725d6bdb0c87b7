#!/usr/bin/env bash
# Installs what is missing, then configures and builds Vellum in build/.
# Extra arguments go to CMake (for example -DVELLUM_SANITIZE=address).
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/install-deps.sh"

generator=()
# Ninja schedules the build better than make; a build folder keeps the
# generator it was made with.
if command -v ninja >/dev/null && [ ! -f "$top/build/Makefile" ]; then
	generator=(-G Ninja)
fi
launcher=()
if command -v ccache >/dev/null; then
	launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
fi
cmake -S "$top" -B "$top/build" "${generator[@]}" "${launcher[@]}" \
	-DCMAKE_BUILD_TYPE="${BUILD_TYPE:-RelWithDebInfo}" "$@" >/dev/null
cmake --build "$top/build" -j"$(nproc)"
