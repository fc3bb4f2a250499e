#!/usr/bin/env bash
# Measures the program: tools/bench.sh [part of a benchmark's name] prints one JSON line per benchmark,
# {"name":…, "value":…, "unit":…, "peer":…, "ratio":…}; what is measured against which peer, in turns, in the same run.
# Everything else goes to the standard error.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
"$here/tools/setup.sh" bench-packages.txt >&2
(cd "$here" && tools/build.sh release) >&2
export QT_QPA_PLATFORM=offscreen
export LC_ALL=C.UTF-8
exec "$here/build/release/bin/thornwell-bench" "$@"
