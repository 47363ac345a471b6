#!/usr/bin/env bash
# Told to end by SIGTERM in the middle of a take, the instrument keeps the
# take as a recovered score, closes as by its close box and exits normally.
# Usage: take_survives_sigterm.sh TESSALY
set -euo pipefail
app="$1"
source "$(dirname "$0")/instrument_under_xvfb.sh"
# SIGTERM, then the program must end by itself within 30 s, with status 0.
end_by_sigterm() {
  kill -TERM "$pid"
  local status=0
  timeout 30 tail --pid="$pid" -f /dev/null || { echo "the program did not end $1"; exit 1; }
  wait "$pid" || status=$?
  pid=""
  [ "$status" = 0 ] || { echo "exit status $status $1"; cat "$work/app.log"; exit 1; }
}

start_instrument
xdotool key g
sleep 0.3
xdotool key h
sleep 0.3
end_by_sigterm "during a take"
kept="$TESSALY_APPDIR/演奏记录/恢复的乐谱.txt"
[ -f "$kept" ] || { echo "no recovered take"; ls "$TESSALY_APPDIR/演奏记录"; cat "$work/app.log"; exit 1; }
take=$(tr -d '\r\n' < "$kept")
echo "recovered take: $take"
grep -q "恢复的乐谱.txt" "$work/app.log" || { echo "the program did not say where the take went"; exit 1; }
[[ "$take" =~ ^[LWKHM][A-G][0-9]+[LWKHM][A-G] ]] || { echo "not a take of two notes: $take"; exit 1; }

# Told to end while the entry window stands in for the main window: the typed
# text is kept too, and the program still ends by itself with status 0.
rm -f "$TESSALY_APPDIR/tessaly.lock"
start_instrument
set -- $(xwininfo -id "$window" | awk '/Absolute upper-left X/ {x=$4} /Absolute upper-left Y/ {y=$4} END {print x, y}')
xdotool mousemove $(($1 + 609)) $(($2 + 181)) click 1   # 新建
for _ in $(seq 1 50); do
  entry="$(xdotool search --onlyvisible --name '^乐谱录入201705$' 2>/dev/null | head -1 || true)"
  [ -n "$entry" ] && break
  sleep 0.2
done
[ -n "$entry" ] || { echo "the entry window never showed"; exit 1; }
sleep 0.8
set -- $(xwininfo -id "$entry" | awk '/Absolute upper-left X/ {x=$4} /Absolute upper-left Y/ {y=$4} END {print x, y}')
xdotool mousemove $(($1 + 250)) $(($2 + 250)) click 1
xdotool type KC8KD
sleep 0.3
end_by_sigterm "with the entry window open"
typed=$(tr -d '\r\n' < "$TESSALY_APPDIR/演奏记录/恢复的乐谱录入.txt")
echo "recovered entry text: $typed"
[ "$typed" = KC8KD ] || { echo "the entry window's text was not kept"; exit 1; }
