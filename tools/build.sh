#!/usr/bin/env bash
# Configures and builds a preset: tools/build.sh [release|debug|sanitize] [targets]. Prints little when all is well.
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:-release}
shift || true
launcher=()
if command -v ccache >/dev/null; then
    launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake --preset "$preset" "${launcher[@]}" -Wno-dev >/dev/null
if [ $# -gt 0 ]; then
    cmake --build --preset "$preset" --target "$@"
else
    cmake --build --preset "$preset"
fi
