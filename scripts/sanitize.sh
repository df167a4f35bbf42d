#!/usr/bin/env bash
# Builds the library and its tests with a sanitizer in a build folder of its own, then runs
# the tests: "asan" is AddressSanitizer with UndefinedBehaviorSanitizer (leaks included),
# "tsan" is ThreadSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

case "${1:-}" in
    asan) sanitizer=address ;;
    tsan) sanitizer=thread ;;
    *) echo "usage: $0 asan|tsan" >&2; exit 2 ;;
esac
ensure_packages "${VELMORA_BUILD_PACKAGES[@]}"

build=build-$1
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVELMORA_SANITIZE="$sanitizer"
cmake --build "$build" -j"$(nproc)"
cd "$build"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1:suppressions=$PWD/../tests/tsan.supp"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$(nproc)" -LE install
