#!/usr/bin/env bash
# A take not yet saved is not lost when the program ends by a run-time
# failure ("删除" before any file was named): the score box's text is kept in
# "演奏记录", the failure says where, and the next start opens it; a second
# failure does not write over the first file.
set -euo pipefail
source "$(dirname "$0")/driver_session.sh"
take=('key down 71' 'key up 71' 'advance 749' 'key down 72' 'key up 72' 'advance 428' 'key down 32' 'key up 32')

status=0
out=$(run start "${take[@]}" 'click Form1.Yuepu(1)') || status=$?
expect "exit status" "$status" 3
expect "the failure says where" "$out" \
  "fatal 无效的过程调用或参数（文件未找到：）。乐谱框中的乐谱已保存为：演奏记录/恢复的乐谱.txt"
expect "the take with its line end" "$(od -An -c "$app/演奏记录/恢复的乐谱.txt" | tr -s ' ' | tr -d '\n')" " K C 8 K D 4 T Z \r \n"

out=$(run start 'dialog 演奏记录/恢复的乐谱.txt' 'click Form1.Yuepu(2)' 'get Form1.Text3.Text')
expect "opened again" "$out" "Form1.Text3.Text=KC8KD4TZ"

status=0
out=$(run start 'type Form1.Text3 KE8' 'click Form1.Yuepu(1)') || status=$?
expect "a second failure" "$out" \
  "fatal 无效的过程调用或参数（文件未找到：）。乐谱框中的乐谱已保存为：演奏记录/恢复的乐谱(2).txt"
expect "the first file kept" "$(cat "$app/演奏记录/恢复的乐谱.txt" | tr -d '\r')" "KC8KD4TZ"

# An empty box keeps nothing.
status=0
out=$(run start 'click Form1.Yuepu(1)') || status=$?
expect "nothing to keep" "$out" "fatal 无效的过程调用或参数（文件未找到：）"
echo ok
