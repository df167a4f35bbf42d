#!/usr/bin/env bash
# Builds the icon sheet program and renders the framework's icons and styled sample window:
#   scripts/iconsheet.sh [BUILD_DIR] [OUT.png]
# Renders offscreen, so no X server is needed.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(realpath -m "${1:-$here/../build}")
out=$(realpath -m "${2:-$build/iconsheet.png}")
cmake -S "$here/.." -B "$build" >/dev/null
cmake --build "$build" -j2 --target iconsheet
QT_QPA_PLATFORM=offscreen "$build/examples/iconsheet" "$out"
