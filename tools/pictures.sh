#!/usr/bin/env bash
# Takes the documents' pictures over from a tour: tools/pictures.sh DIR, where DIR is what tools/tour.sh was given.
# Needs pngquant (Debian package pngquant), which keeps them small.
set -euo pipefail
cd "$(dirname "$0")/.."
directory=${1:?usage: tools/pictures.sh DIR}
command -v pngquant >/dev/null || { echo "pngquant is missing: apt-get install pngquant" >&2; exit 1; }

take() {  # name in the tour, name in docs/pictures
    local found=("$directory"/[0-9][0-9]-"$1".png)
    [ -f "${found[0]}" ] || { echo "The tour in $directory has no picture \"$1\"." >&2; exit 1; }
    pngquant --force --strip --skip-if-larger --output "docs/pictures/$2.png" 256 "${found[0]}"
}
take workspace-built workspace
take message message
take editor-settings settings
take dark dark
take options options
take symbols-by-category symbols
take call-tree call-tree
