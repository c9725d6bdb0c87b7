#!/usr/bin/env bash
# Installs the Debian packages of debian-packages.txt that are missing, and says which.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

missing=()
while read -r package; do
	case "$package" in ''|'#'*) continue ;; esac
	if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
		missing+=("$package")
	fi
done < "$here/debian-packages.txt"

if [ ${#missing[@]} -eq 0 ]; then
	echo "install-deps: all Debian packages present"
	exit 0
fi

echo "install-deps: installing ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
