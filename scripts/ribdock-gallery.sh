#!/usr/bin/env bash
# Builds the ribdock gallery and screenshots it in a real X window under Xvfb.
#   scripts/ribdock-gallery.sh [OUT.png] [GALLERY ARGS...]
# Writes ribdock/gallery.png by default. BUILD_DIR picks the build folder (default: build).
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(dirname "$here")
build=${BUILD_DIR:-$root/build}
out=${1:-$root/ribdock/gallery.png}
shift || true

[ -f "$build/CMakeCache.txt" ] || cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" -j2 --target ribdock_gallery
# A window the size of a small laptop screen; the address bar shows the repository. Another
# xvfb-run starting at the same moment can take the same display, so a failed try is repeated.
for try in 1 2 3; do
    "$here/screenshot.sh" -s 1400x860 "$out" "$build/examples/ribdock/ribdock_gallery" --path "$root" "$@" \
        && exit 0
    echo "Screenshot try $try failed." >&2
done
exit 1
