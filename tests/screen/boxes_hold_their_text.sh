#!/usr/bin/env bash
# Every kind of box the program shows, looked at on the screen: a timed box,
# a file dialog, a plain box, an input box and the box of a fatal failure
# each hold dark text on a light ground inside their window.
# Usage: boxes_hold_their_text.sh TESSALY SCREEN_JUDGE
set -euo pipefail
app="$1"
judge="$2"
source "$(dirname "$0")/screen_session.sh"

# The area of a box inside its window's edges.
box_area() {
  local geometry
  geometry="$(client "$1" box)"
  set -- $geometry
  echo $(($1 + 4)) $(($2 + 4)) $(($3 - 8)) $(($4 - 8))
}

start_instrument

echo "a timed box: a score the player cannot read"
click_in Tessaly201705 700 80
xdotool type QQ
click_in Tessaly201705 735 181
wait_window 提示
shot timed-box
judge readable "$work/timed-box.png" $(box_area 提示) || fail "the timed box cannot be read"
gone_window 提示

echo "a file dialog: 打开"
click_in Tessaly201705 649 181
wait_window 打开
shot file-dialog
judge readable "$work/file-dialog.png" $(box_area 打开) || fail "the file dialog cannot be read"
xdotool key Escape
gone_window 打开

echo "a timed box over the editor: its 帮助"
click_in Tessaly201705 864 181
wait_window 音乐编辑器
click_in 音乐编辑器 653 460
wait_window 提示
shot editor-box
judge readable "$work/editor-box.png" $(box_area 提示) || fail "the editor's box cannot be read"
xdotool key Return
gone_window 提示

echo "an input box: the editor's 设置"
click_in 音乐编辑器 236 424
wait_window 选择小节总数
shot input-box
judge readable "$work/input-box.png" $(box_area 选择小节总数) || fail "the input box cannot be read"

echo "the box of a fatal failure: the input box cancelled"
xdotool key Escape
wait_window 运行时错误
shot fatal-box
judge readable "$work/fatal-box.png" $(box_area 运行时错误) || fail "the fatal failure's box cannot be read"
ls "$TESSALY_APPDIR"/演奏记录/恢复的编辑记录.lnk >/dev/null || fail "the song was not kept"
xdotool key Return
status=0
wait "$pid" || status=$?
pid=""
[ "$status" -ne 0 ] || fail "the program went on after its fatal failure"
echo "the program ended with status $status"

echo "a timed box before the end: a settings file that cannot be read"
rm -f "$TESSALY_APPDIR/tessaly.lock"
printf 'not the settings\r\n' >"$TESSALY_APPDIR/tessaly.ini"
"$app" >"$work/app2.log" 2>&1 &
pid=$!
wait_window 提示
shown=$(date +%s.%N)
shot settings-box
judge readable "$work/settings-box.png" $(box_area 提示) || fail "the settings file's box cannot be read"
wait "$pid" || true
pid=""
awk -v s="$shown" -v e="$(date +%s.%N)" 'BEGIN { d = e - s; printf "the box was up for %.1f s\n", d; exit !(d >= 3.5) }' ||
  fail "the program ended before its box had run its time"

echo "a plain box: a data folder that cannot be made"
: >"$work/not-a-folder"
TESSALY_APPDIR="$work/not-a-folder/app" "$app" >"$work/app3.log" 2>&1 &
pid=$!
# The box bears the name of the main window, which is not shown yet.
wait_window Tessaly201705 box
shot plain-box
judge readable "$work/plain-box.png" $(box_area Tessaly201705) || fail "the plain box cannot be read"
xdotool key Return
wait "$pid" || true
pid=""
