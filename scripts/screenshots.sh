#!/usr/bin/env bash
# Pictures of the instrument's windows, each taken on a fresh virtual display:
# scripts/screenshots.sh OUTDIR  ->  splash.png main.png shortcuts.png rhythm.png chords.png help.png
# keymap.png small.png entry.png dialog.png farewell.png, and the music editor with a few bars
# written in 2/4 and 4/4: editor.png editor44.png, and a score imported into it: editor-import.png
set -euo pipefail
cd "$(dirname "$0")/.."
[ $# -eq 1 ] || { echo "usage: $0 OUTDIR" >&2; exit 2; }
out="$(realpath -m "$1")"
mkdir -p "$out"
[ -x build/src/app/tessaly ] || scripts/build.sh
for window in splash main shortcuts rhythm chords help keymap small entry dialog farewell editor editor44 editor-import; do
  # A throw-away data folder for each, so every picture shows a first start.
  home="$(mktemp -d)"
  XDG_DATA_HOME="$home" SDL_AUDIODRIVER="${SDL_AUDIODRIVER:-dummy}" \
    TESSALY_SCREENSHOT="$out/$window.png" TESSALY_SCREENSHOT_OF="$window" \
    timeout 60 xvfb-run -a -s "-screen 0 1280x800x24" build/src/app/tessaly
  rm -rf "$home"
done
ls "$out"/{splash,main,shortcuts,rhythm,chords,help,keymap,small,entry,dialog,farewell,editor,editor44,editor-import}.png
