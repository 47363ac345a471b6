#!/usr/bin/env bash
# The recorder of the real program under Xvfb, with SDL's disk audio driver:
# a click on the circle records, the key G plays a note, the square stops,
# the save button's dialog takes a name, and the take is a 16-bit 44100 Hz
# stereo WAV with the note in it. The triangle then plays the take back,
# and the audio written meanwhile is loud.
# Usage: record_and_play.sh TESSALY RAW_PEAK
set -euo pipefail
app="$1"
raw_peak="$2"
source "$(dirname "$0")/instrument_under_xvfb.sh"
export TMPDIR="$work"
start_instrument

# The row beside the tabs: triangle, square, circle, save (window pixels).
click() { xdotool mousemove --window "$window" "$1" "$2" click 1; }
click 514 20   # circle: record
sleep 0.3
xdotool key g
sleep 1.2
xdotool key space   # the performance ends: the note stops
sleep 0.5
click 482 20   # square: stop
sleep 0.3
click 563 20   # save: the dialog asks for a name
sleep 1.5
xdotool type --delay 20 "$work/take.mp3"
xdotool key Return
for _ in $(seq 1 50); do [ -f "$work/take.wav" ] && break; sleep 0.2; done
if [ ! -f "$work/take.wav" ]; then
  echo "no take was saved"; cat "$work/app.log"; exit 1
fi
python3 - "$work/take.wav" <<'PY'
import array, sys, wave
with wave.open(sys.argv[1]) as w:
    print("take:", w.getnchannels(), "channels,", 8 * w.getsampwidth(), "bits,", w.getframerate(), "Hz,",
          w.getnframes(), "frames")
    assert (w.getnchannels(), w.getsampwidth(), w.getframerate()) == (2, 2, 44100)
    samples = array.array("h", w.readframes(w.getnframes()))
peak = max(abs(s) for s in samples) / 32768
print("take peak:", peak)
assert w.getnframes() > 44100 and peak > 0.02
PY

# The triangle plays the take back beside the instrument, long after the
# note's own sound has died away.
xdotool windowfocus --sync "$window"
sleep 3
click 450 20   # triangle: open and play
sleep 1.5
before=$(stat -c %s "$work/out.raw")
quietFrom=$((before - 4 * 2 * 48000))
xdotool type --delay 20 "$work/take.wav"
xdotool key Return
sleep 1.2
read -r _ quiet < <(head -c "$before" "$work/out.raw" | "$raw_peak" /dev/stdin "$quietFrom")
read -r _ loud < <("$raw_peak" "$work/out.raw" "$before")
echo "peak in the second before playing: $quiet, while playing: $loud"
awk -v q="$quiet" -v l="$loud" 'BEGIN { exit !(q < 0.001 && l > 0.02) }'
