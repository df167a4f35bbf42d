#!/usr/bin/env bash
# Builds the provider dialog viewer with the fixture plug-ins and screenshots it.
#   scripts/screenshot-providers.sh [BUILD_DIR] [OUT.png]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=${1:-$here/../build}
out=${2:-$build/providers.png}
cmake --build "$build" -j2 --target showproviders
"$here/screenshot.sh" -s 1000x600 "$out" "$build/tests/shell/showproviders"
