#!/usr/bin/env bash
# Photographs the built workbench for the README: the main window with the Notes example and a
# Markdown file open, the property window of the project, and the options dialog. It clicks
# the real widgets with xdotool under Xvfb, in a scratch home.
#   scripts/readme-shots.sh [BUILD_DIR] [OUT_DIR]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
source "$here/packages.sh"
ensure_packages xvfb xauth x11-utils imagemagick xdotool fonts-dejavu-core

build=$(realpath "${1:-$here/../build}")
out=$(realpath -m "${2:-$here/../docs/images}")
mkdir -p "$out"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$here/../examples/notes" "$work/"
mkdir -p "$work/home/.config/Velmora"
printf '[IDE]\nShowQuickStartOnStart=false\n' > "$work/home/.config/Velmora/Tessaly.conf"

export VELMORA_SHOT_OUT=$out VELMORA_SHOT_WORK=$work
unset QT_QPA_PLATFORM
HOME=$work/home xvfb-run -a -s "-screen 0 1600x1000x24" bash -c '
    set -e
    "$1" "$VELMORA_SHOT_WORK/notes/Notes.qprj" "$VELMORA_SHOT_WORK/notes/Papers/Plan.md" &
    pid=$!
    for _ in $(seq 100); do
        window=$(xdotool search --name "^Tessaly$" 2>/dev/null | head -1) && [ -n "$window" ] && break
        sleep 0.1
    done
    sleep 3
    # The window fills 80% of the screen, centred: 1280x800 at (160, 100).
    shot() { import -window root -crop 1280x800+160+100 +repage "$VELMORA_SHOT_OUT/$1"; }
    shot workbench.png
    # The project row in the tree, then the Property tab under the outline.
    xdotool mousemove 240 301 click 1; sleep 0.5
    xdotool mousemove 1212 862 click 1; sleep 1
    shot property.png
    # The ribbon'"'"'s "options" button opens the options dialog.
    xdotool mousemove 632 140 click 1; sleep 1.5
    dialog=$(xdotool search --name "^Options$" | head -1)
    import -window "$dialog" "$VELMORA_SHOT_OUT/options.png"
    kill $pid; wait $pid 2>/dev/null || true
' shots "$build/workbench/Tessaly"
echo "Wrote $out"
