#!/usr/bin/env bash
# Photographs every dialog of the framework under Xvfb:
#   scripts/screenshot-dialogs.sh BUILD_DIR OUT_DIR
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(realpath "$1") out=$(realpath -m "$2")
mkdir -p "$out"
gallery=$build/examples/dialogs_gallery

# Other jobs on the machine may start an X server at the same moment and take the display
# that xvfb-run picked; a second attempt gets another one.
shoot() {
    local attempt
    for attempt in 1 2 3; do
        "$here/screenshot.sh" -d 2 -s 1200x800 "$@" && return 0
        sleep 1
    done
    return 1
}

for which in options quickstart examples appbox install terms; do
    shoot "$out/$which.png" "$gallery" "$which"
done
shoot "$out/assistant.png" "$gallery" assistant "$build/help/velmora.qhc" "project tree"
shoot "$out/assistant-missing.png" "$gallery" assistant "$build/help/missing.qhc"
