#!/usr/bin/env bash
# Installs the Debian packages of tools/packages.txt that are missing, and those of the further lists in tools/ that are
# named: tools/setup.sh [list...]. Does nothing, quickly, when all are there.
set -euo pipefail
cd "$(dirname "$0")"

packages=$(sed -e 's/#.*//' -e '/^\s*$/d' packages.txt "$@" | awk '{print $1}')

if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system: install what corresponds to these packages yourself:" >&2
    echo $packages >&2
    exit 0
fi

missing=()
for package in $packages; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

install="apt-get install -y --no-install-recommends ${missing[*]}"
if [ "$(id -u)" -eq 0 ]; then
    root=()
elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
    root=(sudo)
elif command -v sudo >/dev/null && [ -t 0 ]; then
    echo "Thornwell IDE needs: ${missing[*]}"
    root=(sudo)
else
    echo "Missing packages: ${missing[*]}" >&2
    echo "They can't be installed without root. As root, run:" >&2
    echo "    apt-get update && $install" >&2
    exit 1
fi

echo "Installing: ${missing[*]}"
"${root[@]}" apt-get update -qq || echo "The package lists could not be refreshed; trying with the old ones." >&2
if ! DEBIAN_FRONTEND=noninteractive "${root[@]}" $install; then
    echo "The installation failed. Once it can work, run as root:" >&2
    echo "    apt-get update && $install" >&2
    exit 1
fi
