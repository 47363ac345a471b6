#!/usr/bin/env bash
# Nothing of the user's is lost when the program ends by a run-time failure
# while a song is in the editor: the next start opens the recovered edit file
# and finds the song; a second failure does not write over the first file.
set -euo pipefail
source "$(dirname "$0")/driver_session.sh"

status=0
out=$(run start 'click Form1.BJCK' 'focus YYBJ.YF1(2)' 'type YYBJ.YF1(2) hchdhe' 'click YYBJ.DJY5(7)' \
          'input cancel' 'click YYBJ.ZDXJZS') || status=$?
expect "exit status" "$status" 3
expect "the failure says where" "$out" "fatal 类型不匹配。编辑器中的乐曲已保存为：演奏记录/恢复的编辑记录.lnk"
file="$app/演奏记录/恢复的编辑记录.lnk"
[ -f "$file" ] || fail "no recovered file"
expect "lines" "$(wc -l < "$file")" 13
expect "CR LF" "$(head -n 1 "$file" | od -An -tx1 | tr -d ' \n' | tail -c 4)" "0d0a"
out=$(run start 'click Form1.BJCK' 'dialog 演奏记录/恢复的编辑记录.lnk' 'click YYBJ.DkBianji' \
          'get YYBJ.YF1(2).Text' 'get SlotTokens(7,11)' 'get YYBJ.DJY5(7).Value' 'get BarHead(0)')
expect "the song back" "$out" "YYBJ.YF1(2).Text=HCHDHE--------------------------
SlotTokens(7,11)=O
YYBJ.DJY5(7).Value=1
BarHead(0)=0000"

status=0
out=$(run start 'click Form1.BJCK' 'focus YYBJ.YF1(0)' 'type YYBJ.YF1(0) KC' 'click YYBJ.ST1' \
          'input 99999' 'click YYBJ.ZDXJZS') || status=$?
expect "a second failure" "$out" "fatal 溢出。编辑器中的乐曲已保存为：演奏记录/恢复的编辑记录(2).lnk"
[ -f "$file" ] || fail "the first recovered file is gone"
