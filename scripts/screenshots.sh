#!/usr/bin/env bash
# Pictures of the whole screen, each scene on a fresh virtual display with a
# window manager, as a user sees it: scripts/screenshots.sh OUTDIR  ->
#   splash main shortcuts rhythm chords help keymap small entry dialog farewell
#   editor editor44 editor-import timed-box input-box fatal-box   (.png each)
set -euo pipefail
cd "$(dirname "$0")/.."
[ $# -eq 1 ] || { echo "usage: $0 OUTDIR" >&2; exit 2; }
out="$(realpath -m "$1")"
mkdir -p "$out"
[ -x build/src/app/tessaly ] || scripts/build.sh
scenes=(splash main shortcuts rhythm chords help keymap small entry dialog farewell editor editor44 editor-import
        timed-box input-box fatal-box)
for scene in "${scenes[@]}"; do
  timeout 90 xvfb-run -a -s "-screen 0 1280x800x24" scripts/screen-scene.sh "$out/$scene.png" "$scene" >/dev/null
done
for scene in "${scenes[@]}"; do ls "$out/$scene.png"; done
