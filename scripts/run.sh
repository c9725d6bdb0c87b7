#!/usr/bin/env bash
# Installs what is missing, builds Vellum and starts it with the given arguments.
#
#   bash scripts/run.sh                              an empty inspector window
#   bash scripts/run.sh --refs PATH...               PATH... each in a window
#   bash scripts/run.sh --screenshot FILE.png [PATH] PATH's window drawn into FILE.png,
#                                                    without a display
#   bash scripts/run.sh --screenshot FILE.png PATH --attr NAME [--view N]
#                                                    the data window of PATH's attribute
#   bash scripts/run.sh --install-desktop            Vellum in the desktop's applications
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/build.sh" >&2

case "${1:-}" in
	--install-desktop)
		exec "$top/scripts/install-desktop.sh"
		;;
	--screenshot)
		;;
	*)
		if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] \
			&& [ -z "${QT_QPA_PLATFORM:-}" ]; then
			cat >&2 <<'TEXT'
run: there is no display here (neither DISPLAY nor WAYLAND_DISPLAY is set), so Vellum's
windows cannot be shown. Draw a window into a picture instead:

    bash scripts/run.sh --screenshot window.png [PATH]
TEXT
			exit 1
		fi
		;;
esac
exec "$top/build/vellum" "$@"
