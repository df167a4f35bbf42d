#!/usr/bin/env bash
# Screenshots the built workbench with Chinese chosen as its language, in a scratch home so
# the user's own settings are neither read nor changed.
#   scripts/screenshot_zh.sh OUT.png [BUILD_DIR]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
out=$(realpath -m "$1")
build=$(realpath "${2:-$here/../build}")
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
# Application falls back to this organisation name when the executable gives none.
mkdir -p "$home/.config/velmora.org"
printf '[IDE]\nLanguage=zh_CN\n' > "$home/.config/velmora.org/Tessaly.conf"
HOME=$home XDG_CONFIG_HOME=$home/.config "$here/screenshot.sh" -d 4 "$out" "$build/workbench/Tessaly"
