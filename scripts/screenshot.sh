#!/usr/bin/env bash
# Starts the instrument on a virtual display and saves a picture of its main
# window: scripts/screenshot.sh [OUT.png]  (default: build/screenshot.png)
set -euo pipefail
cd "$(dirname "$0")/.."
out="$(realpath -m "${1:-build/screenshot.png}")"
[ -x build/src/app/tessaly ] || scripts/build.sh
# A throw-away data folder, so the picture shows a first start.
home="$(mktemp -d)"
trap 'rm -rf "$home"' EXIT
XDG_DATA_HOME="$home" TESSALY_SCREENSHOT="$out" \
  timeout 60 xvfb-run -a -s "-screen 0 1280x800x24" build/src/app/tessaly
echo "$out"
