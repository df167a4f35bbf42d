#!/usr/bin/env bash
# Photographs the built workbench with the sample text provider opening a Markdown file.
#   scripts/screenshot-textprovider.sh [BUILD] [OUT.png]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(realpath "${1:-$here/../build}")
out=$(realpath -m "${2:-textprovider.png}")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# A fresh user whose quick-start window stays closed, so the editor shows.
mkdir -p "$scratch/home/.config/velmora.org"
printf '[IDE]\nShowQuickStartOnStart=false\n' > "$scratch/home/.config/velmora.org/Tessaly.conf"
printf '# Field notes\n\nSome text.\n\n## Sampling\n\nDay one.\n\n### Site A\n\n## Results\n\nAll good.\n' \
    > "$scratch/notes.md"
HOME="$scratch/home" "$here/screenshot.sh" "$out" "$build/workbench/Tessaly" "$scratch/notes.md"
