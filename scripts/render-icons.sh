#!/usr/bin/env bash
# Renders the program's icon from its SVG into the PNG sizes the desktop
# looks for. The PNGs are committed; run this again after changing the SVG.
# Needs rsvg-convert (Debian package librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")/../desktop/icons"
for size in 16 22 24 32 48 64 128 256; do
  rsvg-convert -w "$size" -h "$size" io.github.tessaly.Tessaly.svg -o "io.github.tessaly.Tessaly-$size.png"
done
