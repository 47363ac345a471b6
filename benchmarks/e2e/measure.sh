#!/usr/bin/env bash
# The real program timed from outside, as a user meets it: under Xvfb, with
# SDL's disk audio driver, XTest key presses and the probe's clock.
#   benchmarks/e2e/measure.sh [--score FILE] [BUILD_DIR] [RUNS] [PRESSES]
# With --score, FILE is opened into the score box before the keys, as a user
# opens it, so that each key is written after a score of that length.
# $TESSALY_PROBE names another probe (to time an older build's program, whose
# own probe may lack --score).
# For each run, start to main window and key to sound: both SoundFonts at the
# default period (which grows when the callback comes late), both fixed at
# 64 frames, and the small one at 128. The figures for a growing period
# count blocks of 64 frames, so read them beside the period the log reports. The load
# of the machine is printed before each run, as these figures depend on it.
set -euo pipefail
score=()
if [ "${1:-}" = "--score" ]; then
  score=("$(realpath "$2")")
  shift 2
fi
build="$(cd "${1:-build}" && pwd)"
runs="${2:-3}"
presses="${3:-20}"
if [ -z "${DISPLAY:-}" ]; then
  exec xvfb-run -a -s "-screen 0 1280x800x24" "$0" ${score:+--score "${score[0]}"} "$build" "$runs" "$presses"
fi
app="$build/src/app/tessaly"
probe="${TESSALY_PROBE:-$build/benchmarks/tessaly_latency_probe}"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work/run" && mkdir -m 700 "$work/run"

measure() {  # LABEL SOUNDFONT PERIOD(empty for the default)
  local label="$1" soundfont="$2" period="$3"
  rm -rf "$work/app" "$work/audio.fifo"
  echo "== $label, load:$(uptime | sed 's/.*load average://')"
  if [ -n "$period" ]; then export TESSALY_AUDIO_PERIOD="$period"; else unset TESSALY_AUDIO_PERIOD; fi
  TESSALY_APPDIR="$work/app" TESSALY_SOUNDFONT="$soundfont" \
    "$probe" "$app" "$work/audio.fifo" "$work/app.log" "${period:-64}" "$presses" "${score[@]}" | sed 's/^/   /'
  grep -h "period" "$work/app.log" | sed 's/^/   /' || true
}

if [ ${#score[@]} -gt 0 ]; then
  printf '%s: %s characters (line breaks left out)\n' "$(basename "${score[0]}")" \
    "$(tr -d '\r\n' < "${score[0]}" | LC_ALL=C.UTF-8 wc -m)"
fi
for run in $(seq 1 "$runs"); do
  echo "run $run of $runs"
  measure "FluidR3_GM (148 MB), default period" /usr/share/sounds/sf2/FluidR3_GM.sf2 ""
  measure "TimGM6mb (6 MB), default period" /usr/share/sounds/sf2/TimGM6mb.sf2 ""
  measure "FluidR3_GM (148 MB), 64-frame period" /usr/share/sounds/sf2/FluidR3_GM.sf2 64
  measure "TimGM6mb (6 MB), 64-frame period" /usr/share/sounds/sf2/TimGM6mb.sf2 64
  measure "TimGM6mb (6 MB), 128-frame period" /usr/share/sounds/sf2/TimGM6mb.sf2 128
done
