#!/usr/bin/env bash
# Installs what the build needs and builds the framework. The workbench executable does not
# exist yet, so there is nothing to start: this script stops after the build.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/packages.sh
ensure_packages "${VELMORA_BUILD_PACKAGES[@]}"

build=${BUILD_DIR:-build}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" -j"$(nproc)"
echo "Built the framework library in $build/framework. The workbench is not there yet."
