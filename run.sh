#!/usr/bin/env bash
# Installs what the build needs, builds, installs the workbench into a folder of the build and
# starts it on the example text project.
#   ./run.sh                        start Tessaly (needs a display)
#   ./run.sh --screenshot OUT.png   start it under Xvfb and save a screenshot of its window
# BUILD_DIR picks the build folder (default: build). The workbench lands in
# $BUILD_DIR/suite/tessaly/bin; the example sets in $BUILD_DIR/suite/tidekit/examples, where
# its examples dialog looks for them.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/packages.sh

shot=
case "${1:-}" in
    --screenshot)
        [ $# -eq 2 ] || { echo "usage: $0 [--screenshot OUT.png]" >&2; exit 2; }
        shot=$(realpath -m "$2") ;;
    "") ;;
    *) echo "usage: $0 [--screenshot OUT.png]" >&2; exit 2 ;;
esac

# Qt's Chinese catalogues are installed beside the workbench; the splash is drawn in DejaVu.
ensure_packages "${VELMORA_BUILD_PACKAGES[@]}" qt6-translations-l10n fonts-dejavu-core

build=${BUILD_DIR:-build}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j"$(nproc)"
suite=$PWD/$build/suite
cmake --install "$build" --prefix "$suite/tessaly" >/dev/null
tessaly=$suite/tessaly/bin/Tessaly
# The sample provider's text project; the example solution needs types no provider registers.
solution=$suite/tidekit/examples/notes/Notes.qprj
echo "Installed the workbench in $suite/tessaly"

if [ -n "$shot" ]; then
    # A scratch home, so the screenshot shows a first start and leaves no settings behind.
    home=$(mktemp -d)
    trap 'rm -rf "$home"' EXIT
    HOME=$home XDG_CONFIG_HOME=$home/.config scripts/screenshot.sh -d 4 "$shot" \
        "$tessaly" "$solution"
elif [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    cat <<TEXT
There is no display to show the workbench on. Either run, from a desktop session,
    $tessaly $solution
or take a screenshot of it under a virtual X server:
    ./run.sh --screenshot tessaly.png
TEXT
else
    exec "$tessaly" "$solution"
fi
