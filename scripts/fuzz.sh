#!/usr/bin/env bash
# Runs every fuzz target for the given number of seconds (default 60) under AddressSanitizer
# and UndefinedBehaviorSanitizer, each on a working copy of its seed corpus, and reports
# executions and crashes. Crashing inputs land in build-fuzz/artifacts/<target>/; add each
# to fuzz/corpus/<target>/ once fixed, so the ordinary test suite replays it.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
seconds=${1:-60}
ensure_packages "${VELMORA_BUILD_PACKAGES[@]}" clang libclang-rt-14-dev

build=build-fuzz
CC=clang CXX=clang++ cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DVELMORA_FUZZ=ON -DVELMORA_SANITIZE=address \
    -DVELMORA_BUILD_TESTS=OFF -DVELMORA_BUILD_BENCHMARKS=OFF
targets=(projectreader solutionreader mimecodec)
cmake --build "$build" -j"$(nproc)" --target "${targets[@]/#/fuzz_}"

export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
status=0
for target in "${targets[@]}"; do
    # Absolute: the targets change their current folder.
    corpus=$PWD/$build/corpus/$target
    artifacts=$PWD/$build/artifacts/$target/
    mkdir -p "$corpus" "$artifacts"
    cp -n fuzz/corpus/"$target"/* "$corpus"/ 2>/dev/null || true
    log=$build/fuzz_$target.log
    set +e
    "$build/fuzz/fuzz_$target" "$corpus" -max_total_time="$seconds" -timeout=10 \
        -rss_limit_mb=4096 -max_len=1048576 -artifact_prefix="$artifacts" >"$log" 2>&1
    result=$?
    set -e
    runs=$(grep -oE '#[0-9]+' "$log" | tail -1 | tr -d '#')
    crashes=$(find "$artifacts" -type f | wc -l)
    echo "$target: ${runs:-0} executions, $crashes crashing inputs (exit $result, log $log)"
    [ "$result" -eq 0 ] && [ "$crashes" -eq 0 ] || status=1
done
exit $status
