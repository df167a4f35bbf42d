#!/usr/bin/env bash
# Runs a program in a real X window under Xvfb and saves a screenshot of the whole screen.
#   scripts/screenshot.sh [-d SECONDS] [-s WIDTHxHEIGHT] OUT.png PROGRAM [ARGS...]
# Waits SECONDS (default 3) after the program's first window is mapped, grabs the screen, then
# ends the program. Installs xvfb, x11-utils and imagemagick when they are missing.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
source "$here/packages.sh"
ensure_packages xvfb xauth x11-utils imagemagick fonts-dejavu-core fonts-noto-cjk

delay=3 size=1600x1000
while getopts "d:s:" opt; do
    case $opt in
        d) delay=$OPTARG ;;
        s) size=$OPTARG ;;
        *) echo "usage: $0 [-d SECONDS] [-s WxH] OUT.png PROGRAM [ARGS...]" >&2; exit 2 ;;
    esac
done
shift $((OPTIND - 1))
[ $# -ge 2 ] || { echo "usage: $0 [-d SECONDS] [-s WxH] OUT.png PROGRAM [ARGS...]" >&2; exit 2; }
out=$(realpath -m "$1"); shift

# The inner script runs inside the X server's session, so DISPLAY is already set there.
export VELMORA_SHOT_OUT=$out VELMORA_SHOT_DELAY=$delay
unset QT_QPA_PLATFORM
xvfb-run -a -s "-screen 0 ${size}x24" bash -c '
    "$@" &
    pid=$!
    for _ in $(seq 100); do
        xwininfo -root -children 2>/dev/null | grep -q "\"" && break
        kill -0 $pid 2>/dev/null || break
        sleep 0.1
    done
    sleep "$VELMORA_SHOT_DELAY"
    status=0
    if kill -0 $pid 2>/dev/null; then
        import -window root "$VELMORA_SHOT_OUT"
        kill $pid; wait $pid 2>/dev/null || true
    else
        wait $pid || status=$?
        echo "The program ended (status $status) before the screenshot." >&2
        exit 1
    fi
' screenshot "$@"
echo "Wrote $out"
