#!/usr/bin/env bash
# The whole chain from the X server to the sound: the instrument runs under
# Xvfb with SDL's disk audio driver, xdotool presses G as a real key, and the
# audio written after the press must be loud where before it was silent.
# Usage: key_to_sound.sh TESSALY RAW_PEAK
set -euo pipefail
app="$1"
raw_peak="$2"
work="$(mktemp -d)"
trap 'kill "$pid" 2>/dev/null || true; wait "$pid" 2>/dev/null || true; rm -rf "$work"' EXIT

export TESSALY_APPDIR="$work/app"
export TESSALY_SOUNDFONT=/usr/share/sounds/sf2/TimGM6mb.sf2
export SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$work/out.raw"
export XDG_RUNTIME_DIR="$work/run" && mkdir -m 700 "$work/run"

"$app" >"$work/app.log" 2>&1 &
pid=$!

# The main window shows after the splash.
window=""
for _ in $(seq 1 100); do
  window="$(xdotool search --onlyvisible --name '^Tessaly201705$' 2>/dev/null | head -1 || true)"
  [ -n "$window" ] && break
  sleep 0.2
done
if [ -z "$window" ]; then
  echo "the main window never showed"; cat "$work/app.log"; exit 1
fi
xdotool windowfocus --sync "$window"
sleep 1
before=$(stat -c %s "$work/out.raw")
xdotool key g
sleep 1.5
read -r quiet loud < <("$raw_peak" "$work/out.raw" "$before")
echo "peak before the key: $quiet, after: $loud"
awk -v q="$quiet" -v l="$loud" 'BEGIN { exit !(q < 0.0001 && l > 0.01) }'
