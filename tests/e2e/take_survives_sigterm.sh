#!/usr/bin/env bash
# Told to end by SIGTERM in the middle of a take, the instrument keeps the
# take as a recovered score, closes as by its close box and exits normally.
# Usage: take_survives_sigterm.sh TESSALY
set -euo pipefail
app="$1"
source "$(dirname "$0")/instrument_under_xvfb.sh"
start_instrument
xdotool key g
sleep 0.3
xdotool key h
sleep 0.3
kill -TERM "$pid"
status=0
timeout 30 tail --pid="$pid" -f /dev/null || { echo "the program did not end"; exit 1; }
wait "$pid" || status=$?
pid=""
[ "$status" = 0 ] || { echo "exit status $status"; cat "$work/app.log"; exit 1; }
kept="$TESSALY_APPDIR/演奏记录/恢复的乐谱.txt"
[ -f "$kept" ] || { echo "no recovered take"; ls "$TESSALY_APPDIR/演奏记录"; cat "$work/app.log"; exit 1; }
take=$(tr -d '\r\n' < "$kept")
echo "recovered take: $take"
grep -q "恢复的乐谱.txt" "$work/app.log" || { echo "the program did not say where the take went"; exit 1; }
[[ "$take" =~ ^[LWKHM][A-G][0-9]+[LWKHM][A-G] ]] || { echo "not a take of two notes: $take"; exit 1; }
