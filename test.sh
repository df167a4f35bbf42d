#!/usr/bin/env bash
# Installs what the build needs, builds everything with all cores and runs every test
# through CTest, offscreen. BUILD_DIR picks the build folder (default: build).
set -euo pipefail
cd "$(dirname "$0")"
source scripts/packages.sh
ensure_packages "${VELMORA_BUILD_PACKAGES[@]}"

build=${BUILD_DIR:-build}
jobs=$(nproc)
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" -j"$jobs"
cd "$build"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$jobs"
