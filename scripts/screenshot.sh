#!/usr/bin/env bash
# A picture of the whole screen with the instrument's main window on a virtual
# display under a window manager: scripts/screenshot.sh [OUT.png]  (default: build/screenshot.png)
set -euo pipefail
cd "$(dirname "$0")/.."
out="$(realpath -m "${1:-build/screenshot.png}")"
[ -x build/src/app/tessaly ] || scripts/build.sh
timeout 90 xvfb-run -a -s "-screen 0 1280x800x24" scripts/screen-scene.sh "$out" main
