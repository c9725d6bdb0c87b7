#!/usr/bin/env bash
# Adds the built Vellum to the desktop's applications: its entry (so that files
# and folders offer "Open With Vellum") and its icon, in ~/.local/share (or
# $XDG_DATA_HOME). The entry starts build/vellum of this checkout; run it again
# after moving the checkout. --uninstall removes both again.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
data="${XDG_DATA_HOME:-$HOME/.local/share}"
entry="$data/applications/vellum.desktop"
sizes="16 32 64"

refresh() {
	if command -v update-desktop-database >/dev/null; then
		update-desktop-database -q "$data/applications" || true
	fi
	if command -v gtk-update-icon-cache >/dev/null; then
		gtk-update-icon-cache -q -t "$data/icons/hicolor" 2>/dev/null || true
	fi
}

if [ "${1:-}" = "--uninstall" ]; then
	rm -f "$entry"
	for size in $sizes; do
		rm -f "$data/icons/hicolor/${size}x$size/apps/vellum.png"
	done
	refresh
	echo "install-desktop: removed $entry and the icons"
	exit 0
fi

program="$top/build/vellum"
if [ ! -x "$program" ]; then
	echo "install-desktop: $program is missing; build it first: bash scripts/build.sh" >&2
	exit 1
fi

# Exec= takes a quoted path; within the quotes ", `, $ and \ are escaped.
quoted=$program
quoted=${quoted//\\/\\\\\\\\}
quoted=${quoted//\"/\\\\\"}
quoted=${quoted//\`/\\\\\`}
quoted=${quoted//\$/\\\\\$}

mkdir -p "$data/applications"
while IFS= read -r line; do
	case "$line" in
		Exec=*) printf 'Exec="%s" --refs %%F\n' "$quoted" ;;
		*) printf '%s\n' "$line" ;;
	esac
done < "$top/resources/vellum.desktop" > "$entry"
for size in $sizes; do
	install -D -m 644 "$top/resources/vellum-$size.png" \
		"$data/icons/hicolor/${size}x$size/apps/vellum.png"
done
refresh
echo "install-desktop: installed $entry and the icons in $data/icons/hicolor"
echo "install-desktop: open files and folders with Vellum from the file manager (Open With)"
