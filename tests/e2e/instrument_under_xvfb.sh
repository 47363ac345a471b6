# Sourced by the e2e tests that listen to the real program: a throw-away
# folder in $work (removed at exit with the program), SDL's disk driver
# writing the audio to $work/out.raw, the small SoundFont. Then
# start_instrument launches "$app" and sets $window to its main window,
# focused, once the splash has gone.
work="$(mktemp -d)"
pid=""
trap '[ -n "$pid" ] && { kill "$pid" 2>/dev/null || true; wait "$pid" 2>/dev/null || true; }; rm -rf "$work"' EXIT

export TESSALY_APPDIR="$work/app"
export TESSALY_SOUNDFONT=/usr/share/sounds/sf2/TimGM6mb.sf2
export SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$work/out.raw"
# A fixed period: a device reopened by the period's fallback (a loaded machine
# makes the disk driver late) starts the disk driver's file afresh, and what
# was measured from an offset in it would be lost.
export TESSALY_AUDIO_PERIOD=128
export XDG_RUNTIME_DIR="$work/run" && mkdir -m 700 "$work/run"

start_instrument() {
  "$app" >"$work/app.log" 2>&1 &
  pid=$!
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
}
