#!/usr/bin/env bash
# Builds the library and its tests with a sanitizer in a build folder of its own, then runs
# the tests: "asan" is AddressSanitizer with UndefinedBehaviorSanitizer (leaks included),
# "tsan" is ThreadSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

# The thread sanitizer runs the tests of the threaded layers (locks, registrars, model, item
# types). Tests that paint windows or run the help browser start Qt's own threads (the raster
# engine's fill pool, the help search), whose synchronisation it cannot see in an
# uninstrumented Qt: every report there is inside Qt.
case "${1:-}" in
    asan) sanitizer=address tests=(-LE install) ;;
    tsan) sanitizer=thread tests=(-L 'core|model|types') ;;
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
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$(nproc)" "${tests[@]}"
