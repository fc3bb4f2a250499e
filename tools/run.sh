#!/usr/bin/env bash
# Builds the IDE and opens it: tools/run.sh [files]. Without files it opens examples/blink. Without a display it drives
# the program through its tour instead and says where the pictures are.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
"$here/tools/setup.sh"
(cd "$here" && tools/build.sh release)

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    echo "There is no display: running the tour."
    exec "$here/tools/tour.sh" "$here/tour"
fi
[ $# -gt 0 ] || set -- "$here/examples/blink/blink.__c"
exec "$here/build/release/bin/thornwell-ide" "$@"
