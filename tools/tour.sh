#!/usr/bin/env bash
# Drives the real program through its main jobs without a display: tools/tour.sh DIR leaves numbered pictures and a log
# in DIR and fails when a job does.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
directory=${1:?usage: tools/tour.sh DIR}
"$here/tools/setup.sh"
(cd "$here" && tools/build.sh release)
mkdir -p "$directory"
rm -f "$directory"/[0-9][0-9]-*.png
export QT_QPA_PLATFORM=offscreen
"$here/build/release/bin/thornwell-tour" "$directory"
echo "The pictures and the log are in $directory."
