#!/usr/bin/env bash
# Under a window manager the windows stand where the user left them: the
# entry window and the editor open centred over the main window, and the main
# window comes back exactly where it stood by every way out of them. The entry
# window opens empty each time. The farewell looks the same by either way out.
# Usage: windows_keep_their_place.sh TESSALY SCREEN_JUDGE
set -euo pipefail
app="$1"
judge="$2"
source "$(dirname "$0")/screen_session.sh"

# A click on the close box of a window's frame, as the user closes it.
close_box() {
  local id parent
  id="$(window_id "$1")"
  parent="$(xwininfo -id "$id" -children | awk '/Parent window id/ {print $4}')"
  set -- $(xwininfo -id "$parent" | awk '/Absolute upper-left X/ {x=$4} /Absolute upper-left Y/ {y=$4}
                                       /^  Width/ {w=$2} END {print x, y, w}')
  xdotool mousemove $(($1 + $3 - 11)) $(($2 + 10)) click 1
  sleep 0.4
}

# The window stands centred over where the main window stands.
centred_over_main() {
  set -- $(client "$1") $(client Tessaly201705)
  local dx=$(( ($1 + $3 / 2) - ($5 + $7 / 2) )) dy=$(( ($2 + $4 / 2) - ($6 + $8 / 2) ))
  echo "centre of the window off the main window's by $dx,$dy"
  [ "${dx#-}" -le 30 ] && [ "${dy#-}" -le 30 ]
}

main_in_place() {
  wait_window Tessaly201705
  local now; now="$(frame Tessaly201705)"
  echo "main window at $now after $1 (at first $first)"
  [ "$now" = "$first" ] || fail "the main window moved after $1"
}

start_instrument
first="$(frame Tessaly201705)"

click_in Tessaly201705 606 181  # 新建
wait_window 乐谱录入201705
centred_over_main 乐谱录入201705 || fail "the entry window does not open over the main window"
shot entry-first
click_in 乐谱录入201705 250 60   # the song name
xdotool type song
click_in 乐谱录入201705 250 250  # the score
xdotool type KC8KD
click_in 乐谱录入201705 460 461  # 返回主窗口
main_in_place "返回主窗口"

click_in Tessaly201705 606 181
wait_window 乐谱录入201705
shot entry-second
set -- $(client 乐谱录入201705)
judge alike "$work/entry-first.png" "$work/entry-second.png" "$1" "$2" 520 440 ||
  fail "the entry window keeps the text of its last opening"
close_box 乐谱录入201705
main_in_place "the entry window's close box"

click_in Tessaly201705 864 181  # 编辑
wait_window 音乐编辑器
centred_over_main 音乐编辑器 || fail "the editor does not open over the main window"
click_in 音乐编辑器 734 460      # 退出窗口
main_in_place "the editor's 退出窗口"

click_in Tessaly201705 864 181
wait_window 音乐编辑器
close_box 音乐编辑器
main_in_place "the editor's close box"

echo "the farewell after 退出 and after the close box"
farewell() {
  wait_window "$1"
  shot "$2"
  set -- $(client "$1")
  echo $1 $2 $3 $4 > "$work/farewell-area"
}
click_in Tessaly201705 938 20   # 退出
farewell "再 见" farewell-exit
wait "$pid" || true
pid=""
rm -f "$TESSALY_APPDIR/tessaly.lock"
start_instrument
close_box Tessaly201705
farewell "再 见" farewell-close
judge same-letters "$work/farewell-exit.png" "$work/farewell-close.png" $(cat "$work/farewell-area") ||
  fail "the farewell differs by the way out"
