#!/usr/bin/env bash
# FIFOs where the program expects files, and links that loop in its folders:
# every open refuses what is no regular file at once, every listing passes
# over what it cannot examine, and the program goes on.
set -uo pipefail
source "$(dirname "$0")/driver_session.sh"
export TESSALY_SOUNDFONT=${TESSALY_SOUNDFONT:-/usr/share/sounds/sf2/TimGM6mb.sf2}
# go [OPTION...] -- LINE...: one run; its output in $out, its status in $status (124: it hung).
go() {
  local options=()
  while [ "$1" != -- ]; do options+=("$1"); shift; done
  shift
  out=$(printf '%s\n' "$@" | timeout 30 "$driver" --appdir "$app" "${options[@]}" 2>&1)
  status=$?
}

go -- start quit 'advance 4000'
[ "$status" = 0 ] || fail "first start: status $status: $out"

# The recorder's player opens a FIFO named .wav: the open fails at once (no
# result of the recorder is examined, so the program simply goes on).
mkfifo "$app/演奏记录/管道.wav"
go --synth -- start 'dialog 演奏记录/管道.wav' 'click Form1.Image1(0)' 'advance 500' 'get Form1.Visible'
[ "$status" = 0 ] || fail "playing a FIFO: status $status: $out"
printf '%s\n' "$out" | grep -q '^Form1.Visible=-1$' || fail "the program did not go on: $out"

# The chord figures file is a FIFO: the start reads nothing from it, "保 存" writes nothing into it.
mv "$app/HxJzMx.txt" "$work/HxJzMx.txt"
mkfifo "$app/HxJzMx.txt"
go -- start 'set Form1.Text4.Text CCCCCCCCCCCCCCCC' 'click Form1.Command4' events quit 'advance 4000'
[ "$status" = 0 ] || fail "a FIFO as chord figures file: status $status: $out"
printf '%s\n' "$out" | grep -q '^box 提示|无法保存和弦节奏：.*HxJzMx.txt：不是普通文件$' || fail "no box for the FIFO: $out"
[ -p "$app/HxJzMx.txt" ] || fail "the FIFO was replaced"
rm "$app/HxJzMx.txt"
mv "$work/HxJzMx.txt" "$app/HxJzMx.txt"

# The instance lock is a FIFO.
rm -f "$app/tessaly.lock"
mkfifo "$app/tessaly.lock"
go -- start 'get Form1.Visible' quit 'advance 4000'
[ "$status" = 0 ] || fail "a FIFO as lock file: status $status: $out"
printf '%s\n' "$out" | grep -q '^Form1.Visible=-1$' || fail "no main window with a FIFO as lock file: $out"
rm "$app/tessaly.lock"

# Links that loop in both folders, and a missing sound-effects folder to seed
# from a shipped folder that holds one too.
ln -s 环 "$app/演奏记录/环"
ln -s 环 "$app/音效/环"
go -- start 'dialog 演奏记录/环' 'click Form1.Yuepu(2)' 'get Form1.File1.ListCount' 'move Form1.Label11' 'click Form1.Xxk(5)' 'get Form1.File2.ListCount' quit 'advance 4000'
[ "$status" = 0 ] || fail "links that loop: status $status: $out"
printf '%s\n' "$out" | grep -q '^ended$' || fail "not ended: $out"
echo ok
