#!/usr/bin/env bash
# Runs the parsers of outside text under a fuzzer: tools/fuzz.sh [target] [seconds]. Without a target all of tests/fuzz one
# after the other, a minute each unless told otherwise. Starts from tests/fuzz/corpus and from what earlier runs have come
# to; both that and the inputs that led to a finding stay in build/fuzz. Exit code 1: there are findings.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
target=${1:-}
seconds=${2:-60}
if [[ $# -eq 1 && $target =~ ^[0-9]+$ ]]; then
    seconds=$target
    target=
fi
"$here/tools/setup.sh" fuzz-packages.txt

build=$here/build/fuzz
launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake -S "$here" -B "$build" -G Ninja -Wno-dev -DTHORNWELL_FUZZ=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ "${launcher[@]}" >/dev/null
cmake --build "$build" ${target:+--target "fuzz_$target"}

export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:allocator_may_return_null=0}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}
findings=()
run=0
for program in "$build/bin/fuzz_"${target:-*}; do
    [ -x "$program" ] || continue
    name=$(basename "$program")
    name=${name#fuzz_}
    # A target that is gone from the tree leaves its program behind.
    [ -d "$here/tests/fuzz/corpus/$name" ] || continue
    mkdir -p "$build/corpus/$name" "$build/findings/$name"
    echo "fuzz: $name, $seconds s"
    run=$((run + 1))
    log=$build/$name.log
    "$program" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=65536 -print_final_stats=1 \
        -artifact_prefix="$build/findings/$name/" \
        "$build/corpus/$name" "$here/tests/fuzz/corpus/$name" >"$log" 2>&1 || {
        findings+=("$name")
        grep -v '^#' "$log" >&2
    }
    grep -E 'executed_units|new_units|peak_rss' "$log" || true
done
if [ "$run" -eq 0 ]; then
    echo "fuzz: there is no target \"$target\"" >&2
    exit 2
fi
if [ ${#findings[@]} -gt 0 ]; then
    echo "fuzz: findings in ${findings[*]}; the inputs lie in $build/findings" >&2
    exit 1
fi
echo "fuzz: no findings"
