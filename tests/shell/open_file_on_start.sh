#!/usr/bin/env bash
# A file named on the command line opens as the user would open it: a score
# by "打开" (the same run as the click with the file chosen in the dialog), an
# edit file in the editor, a rhythm file of "演奏记录" from the rhythm list.
set -euo pipefail
source "$(dirname "$0")/driver_session.sh"

after=('get Form1.Text3.Text' 'get Form1.Yuepu(0).Caption' 'advance 1500' 'midi' 'events')
by_click=$(run start 'events' 'dialog 演奏记录/小星星.txt' 'click Form1.Yuepu(2)' "${after[@]}")
by_name=$(run start 'events' 'open-file 演奏记录/小星星.txt' "${after[@]}")
expect "the score opened as by 打开" "$by_name" "$by_click"
score=$(tr -d '\r\n' < "$app/演奏记录/小星星.txt")
grep -qxF "Form1.Text3.Text=$score" <<<"$by_name" || fail "the score box does not hold the score: $by_name"
grep -qx 'Form1.Yuepu(0).Caption=停止' <<<"$by_name" || fail "the score does not play: $by_name"

# An edit file from outside the data folder: the editor opens with its song.
cp "$(dirname "$0")/../fuzz/edit_files/four_four.lnk" "$work/我的歌.lnk"
out=$(run start "open-file $work/我的歌.lnk" 'get YYBJ.Visible' 'get Form1.Visible' 'get BarCount' \
          'get YYBJ.YF1(0).Text' 'get YYBJ.YF1(1).Text')
expect "the editor with the song" "$out" "YYBJ.Visible=-1
Form1.Visible=0
BarCount=0
YYBJ.YF1(0).Text=$(sed -n 2p "$work/我的歌.lnk" | tr -d '\r')
YYBJ.YF1(1).Text=$(sed -n 3p "$work/我的歌.lnk" | tr -d '\r')"

# A rhythm file of the folder is taken from the list; one from elsewhere, or
# another kind of file, leaves the page as it was and says why.
out=$(run start 'open-file 演奏记录/03华尔兹.bin' 'get Form1.Label11.Caption')
expect "the rhythm from the list" "$out" "Form1.Label11.Caption=3★03华尔兹.bin"
cp "$app/演奏记录/03华尔兹.bin" "$work/华尔兹.bin"
out=$(run start "open-file $work/华尔兹.bin" 'get Form1.Label11.Caption' 'get Form1.FJWZ.Caption')
expect "a rhythm from elsewhere" "$out" "Form1.Label11.Caption=1★01慢四.bin
Form1.FJWZ.Caption=节奏文件要放在“演奏记录”文件夹中才能使用：$work/华尔兹.bin"
out=$(run start "open-file $work/照片.png" 'get Form1.FJWZ.Caption' 'get Form1.Text3.Text')
expect "another kind of file" "$out" "Form1.FJWZ.Caption=无法打开这种文件：$work/照片.png
Form1.Text3.Text="
