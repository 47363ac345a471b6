#!/usr/bin/env bash
# A rhythm saved under a Chinese name and opened again in a later run: the
# file holds one line of 77 characters and CR LF, in UTF-8, so more bytes than
# characters; a copy in GB18030 from elsewhere opens the same.
set -euo pipefail
source "$(dirname "$0")/driver_session.sh"
folder=$app/演奏记录

# The first built-in rhythm (01慢四) changed on the page, then saved.
out=$(run start 'click Form1.BZA(1)' 'pick Form1.LblInst(2) 46' 'click Form1.Option1(1)' 'pick Form1.VsbVol 7' \
          'click Form1.BZC(16)' 'dialog 演奏记录/我的节奏.bin' 'click Form1.Cmdcill(1)' 'get Form1.Label11.Caption')
expect "saved from the first file" "$out" "Form1.Label11.Caption=1★01慢四.bin"
line='070101022E00**---*--*----*----*---*---*---*-*-*-*-*-*-*-*-*-*我的节奏.bin        '
printf '%s\r\n' "$line" > "$work/expected.bin"
cmp "$folder/我的节奏.bin" "$work/expected.bin" || fail "bytes differ: $(od -c "$folder/我的节奏.bin" | head)"
expect "characters" "$(printf '%s' "$line" | wc -m)" 77
expect "bytes" "$(wc -c < "$folder/我的节奏.bin")" $((77 + 4 * 2 + 2))

# The same line in GB18030, as an older copy would be.
iconv -f UTF-8 -t GB18030 "$folder/我的节奏.bin" > "$folder/旧节奏.bin"
expect "GB18030 bytes" "$(wc -c < "$folder/旧节奏.bin")" $((77 + 4 + 2))

# A later start: the nine built-in rhythms first, then the two files.
query=('get Form1.Label11.Caption' 'get Form1.VsbVol.Text' 'get Form1.Option1(1).Value' 'get RhythmLastStep'
       'get Form1.LblInst(2).ListIndex' 'get Form1.BZA(1).Value' 'get Form1.BZC(16).Value' 'get StepTable(1,0).On'
       'get StepTable(0,2).ShortMsg')
reads="Form1.VsbVol.Text=120
Form1.Option1(1).Value=-1
RhythmLastStep=11
Form1.LblInst(2).ListIndex=46
Form1.BZA(1).Value=1
Form1.BZC(16).Value=1
StepTable(1,0).On=-1
StepTable(0,2).ShortMsg=$((120 * 65536 + 81 * 256 + 153))"
out=$(run start 'get Form1.File1.ListCount' 'move Form1.Label11' 'pick Form1.File1 9' 'get RhythmFileText' "${query[@]}")
expect "opened by the list" "$out" "Form1.File1.ListCount=11
RhythmFileText=$line
Form1.Label11.Caption=10★我的节奏.bin
$reads"
out=$(run start 'move Form1.Label11' 'pick Form1.File1 10' 'get RhythmFileText' "${query[@]}")
expect "opened in GB18030" "$out" "RhythmFileText=$line
Form1.Label11.Caption=11★旧节奏.bin
$reads"
echo "rhythm file round trip: ok"
