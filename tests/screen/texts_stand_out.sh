#!/usr/bin/env bash
# Every text written on a window's picture stands out from what lies behind
# it: a contrast of at least 4.5 : 1, measured on the screen.
# Usage: texts_stand_out.sh TESSALY SCREEN_JUDGE
set -euo pipefail
app="$1"
judge="$2"
source "$(dirname "$0")/screen_session.sh"

# measure PICTURE WINDOW NAME X Y W H: the text at X,Y of the window's client area.
measure() {
  local geometry
  geometry="$(client "$2")"
  set -- "$@" $geometry
  echo -n "$3: "
  judge contrast "$1" $(($8 + $4)) $(($9 + $5)) "$6" "$7" 4.5 || fail "$3 does not stand out"
}

start_instrument
click_in Tessaly201705 778 181  # 清空: a status text
sleep 1.2                       # the clock has shown the time
shot main
measure "$work/main.png" Tessaly201705 "the information line" 114 206 398 52
measure "$work/main.png" Tessaly201705 "the status line" 686 206 286 18
measure "$work/main.png" Tessaly201705 "消    音    板" 686 225 130 18
measure "$work/main.png" Tessaly201705 "the clock" 824 225 148 18
measure "$work/main.png" Tessaly201705 "the credit line" 686 243 286 16

click_in Tessaly201705 606 181  # 新建
wait_window 乐谱录入201705
shot entry
measure "$work/entry.png" 乐谱录入201705 "the song name's label" 24 22 200 22
measure "$work/entry.png" 乐谱录入201705 "the score box's label" 24 82 496 40
measure "$work/entry.png" 乐谱录入201705 "the help on the format" 556 22 240 454
