#!/usr/bin/env bash
# The whole chain from the X server to the sound: the instrument runs under
# Xvfb with SDL's disk audio driver, xdotool presses G as a real key, and the
# audio written after the press must be loud where before it was silent.
# Usage: key_to_sound.sh TESSALY RAW_PEAK
set -euo pipefail
app="$1"
raw_peak="$2"
source "$(dirname "$0")/instrument_under_xvfb.sh"
start_instrument
before=$(stat -c %s "$work/out.raw")
xdotool key g
sleep 1.5
read -r quiet loud < <("$raw_peak" "$work/out.raw" "$before")
echo "peak before the key: $quiet, after: $loud"
awk -v q="$quiet" -v l="$loud" 'BEGIN { exit !(q < 0.0001 && l > 0.01) }'
