#!/usr/bin/env bash
# Installs what is missing, builds Vellum and starts it with the given arguments.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/build.sh" >&2
if [ ! -x "$top/build/vellum" ]; then
	echo "run: Vellum was built, but this version has no program to start yet (libraries and tests only)." >&2
	exit 0
fi
exec "$top/build/vellum" "$@"
