#!/usr/bin/env bash
# Photographs the tool windows: the demo program in its three states, under Xvfb.
#   scripts/screenshot-views.sh [BUILD_DIR] [OUT_DIR]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=${1:-$here/../build}
out=${2:-$build/screenshots}
mkdir -p "$out"
"$here/screenshot.sh" -s 1400x900 "$out/views.png" "$build/examples/views_demo"
"$here/screenshot.sh" -s 1400x900 "$out/views-front.png" "$build/examples/views_demo" --front
"$here/screenshot.sh" -s 1400x900 "$out/views-editors.png" "$build/examples/views_demo" --editors
