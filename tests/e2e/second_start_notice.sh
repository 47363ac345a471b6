#!/usr/bin/env bash
# A second start of the real program, under Xvfb, while the first runs: its
# notice "提示" must be on the screen for its 5000 ms before the process ends.
# Usage: second_start_notice.sh TESSALY
set -euo pipefail
app="$1"
work="$(mktemp -d)"
first=""
trap '[ -n "$first" ] && kill "$first" 2>/dev/null; wait 2>/dev/null || true; rm -rf "$work"' EXIT
export TESSALY_APPDIR="$work/app" SDL_AUDIODRIVER=dummy
export TESSALY_SOUNDFONT=/usr/share/sounds/sf2/TimGM6mb.sf2
export XDG_RUNTIME_DIR="$work/run" && mkdir -m 700 "$work/run"
fail() { echo "FAIL: $*"; exit 1; }

"$app" >"$work/first.log" 2>&1 &
first=$!
for _ in $(seq 1 100); do
  xdotool search --onlyvisible --name '^Tessaly201705$' >/dev/null 2>&1 && break
  sleep 0.2
done
xdotool search --onlyvisible --name '^Tessaly201705$' >/dev/null 2>&1 || fail "the first instance never showed"

started=$(date +%s.%N)
"$app" >"$work/second.log" 2>&1 &
second=$!
seen=""
for _ in $(seq 1 50); do
  if xdotool search --onlyvisible --name '^提示$' >/dev/null 2>&1; then seen=yes; break; fi
  sleep 0.1
done
[ -n "$seen" ] || { kill "$second" 2>/dev/null || true; fail "no notice from the second start"; }
sleep 3.5
kill -0 "$second" 2>/dev/null || fail "the second start ended before its notice had run its time"
xdotool search --onlyvisible --name '^提示$' >/dev/null 2>&1 || fail "the notice closed early"
wait "$second" || fail "the second start exited with an error"
ended=$(date +%s.%N)
awk -v s="$started" -v e="$ended" 'BEGIN { d = e - s; printf "the second start lived %.1f s\n", d; exit !(d >= 4.9 && d < 15) }'
