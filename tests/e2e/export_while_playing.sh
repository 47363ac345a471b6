#!/usr/bin/env bash
# The export button of the real program under Xvfb, with SDL's disk audio
# driver: a score typed into the score box plays, "导出" asks for a name in
# its dialog, and the WAV file comes while the instrument goes on sounding
# the score. The file holds the score's notes.
# Usage: export_while_playing.sh TESSALY RAW_PEAK
set -euo pipefail
app="$1"
raw_peak="$2"
source "$(dirname "$0")/instrument_under_xvfb.sh"
start_instrument

# The score box, then its row of buttons (window pixels): "试听" and "导出".
click() { xdotool mousemove --window "$window" "$1" "$2" click 1; }
click 700 90
xdotool type --delay 20 "KC8KDKEKFKGKAKBHC8KGKEKC16TZ"
click 735 182   # 试听: the score plays
sleep 1
click 907 182   # 导出: the dialog asks for a name
sleep 1.5
before=$(stat -c %s "$work/out.raw")
xdotool type --delay 20 "$work/export.wav"
xdotool key Return
for _ in $(seq 1 100); do [ -f "$work/export.wav" ] && break; sleep 0.1; done
if [ ! -f "$work/export.wav" ]; then
  echo "no file was exported"; cat "$work/app.log"; exit 1
fi
sleep 0.5
# What the instrument sounded from the name's Return until the file was there and after.
read -r _ loud < <("$raw_peak" "$work/out.raw" "$before")
echo "peak of the instrument while exporting: $loud"
python3 - "$work/export.wav" <<'PY'
import array, sys, wave
with wave.open(sys.argv[1]) as w:
    print("export:", w.getnchannels(), "channels,", 8 * w.getsampwidth(), "bits,", w.getframerate(), "Hz,",
          w.getnframes() / w.getframerate(), "s")
    assert (w.getnchannels(), w.getsampwidth(), w.getframerate()) == (2, 2, 48000)
    samples = array.array("h", w.readframes(w.getnframes()))
peak = max(abs(s) for s in samples) / 32768
print("export peak:", peak)
# Eleven notes: 10 x 8 ticks and 16 ticks of 107 ms, after the first tick.
assert w.getnframes() / w.getframerate() > 0.107 * 97 and peak > 0.02
PY
awk -v l="$loud" 'BEGIN { exit !(l > 0.01) }'
if [ -n "${EXPORT_SCREENSHOT:-}" ]; then
  xwd -silent -id "$window" | convert xwd:- "$EXPORT_SCREENSHOT"
fi
