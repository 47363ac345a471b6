#!/usr/bin/env bash
# Inside an X server (xvfb-run gives one): openbox manages the windows, the
# instrument stages one scene on a fresh data folder, and the whole screen is
# taken as the X server shows it.   screen-scene.sh OUT.png SCENE
set -euo pipefail
cd "$(dirname "$0")/.."
out="$1"
scene="$2"
home="$(mktemp -d)"
wm=""
app=""
trap '[ -n "$app" ] && kill "$app" 2>/dev/null; [ -n "$wm" ] && kill "$wm" 2>/dev/null; wait 2>/dev/null; rm -rf "$home"' EXIT
openbox >/dev/null 2>&1 &
wm=$!
sleep 0.5
rm -f "$out" "$out.ready"
XDG_DATA_HOME="$home" XDG_RUNTIME_DIR="$home" SDL_AUDIODRIVER="${SDL_AUDIODRIVER:-dummy}" \
  TESSALY_SCREENSHOT="$out" TESSALY_SCREENSHOT_OF="$scene" build/src/app/tessaly >"$home/app.log" 2>&1 &
app=$!
for _ in $(seq 1 300); do
  [ -e "$out.ready" ] && break
  kill -0 "$app" 2>/dev/null || { cat "$home/app.log" >&2; echo "the program ended before the scene $scene stood" >&2; exit 1; }
  sleep 0.1
done
[ -e "$out.ready" ] || { echo "the scene $scene never stood" >&2; exit 1; }
rm -f "$out.ready"
# One reading of the root window: every window as the X server shows it.
import -window root "$out"
echo "$out"
