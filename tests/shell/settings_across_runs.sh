#!/usr/bin/env bash
# The settings file over several starts of the program in one folder: the
# defaults at the first start, a save read back at the next, and a broken file
# that ends the program, is kept as tessaly.ini.bad and gives way to the defaults.
set -euo pipefail
source "$(dirname "$0")/driver_session.sh"
ini=$app/tessaly.ini

# First start in an empty folder: the file is written and read.
out=$(run start 'get InstrumentSet(4,0)' 'get InstrumentSet(11,2)' 'get KeypadPercussion(6)' 'get EffectFile(5)' \
          'get Form1.Check1.Value')
expect "defaults read" "$out" "InstrumentSet(4,0)=81
InstrumentSet(11,2)=90
KeypadPercussion(6)=39
EffectFile(5)=钟声.wav 
Form1.Check1.Value=0"
expect "line count" "$(wc -l < "$ini")" 53
# Blanks show as _ and carriage returns as R.
visible() { tr ' \r' '_R'; }
expect "first line has no leading blank" "$(head -n 1 "$ini" | visible)" "3_R"
expect "numbers with their blanks" "$(sed -n 2p "$ini" | visible)" "_89_R"
expect "name with its trailing blank" "$(sed -n 52p "$ini")" $'钟声.wav \r'
# The file is stored without the blank, which no file name keeps, and found by the name with it.
[ -f "$app/音效/钟声.wav" ] || fail "the bell effect was not seeded"
cp "$ini" "$work/defaults.ini"

# Changes on the shortcut page, saved, then the check box changed without saving.
out=$(run start 'click Form1.Option3(4)' 'pick Form1.YQSZ(2) 99' 'click Form1.Option3(15)' 'pick Form1.YQSZ(3) 46' \
          'click Form1.Option3(25)' \
          "set Form1.File2.Path $app/音效/" 'pick Form1.File2 0' 'get EffectFile(3)' 'click Form1.Check1' 'click Form1.BCSZ' \
          'get Form1.FJWZ.Caption' 'click Form1.Check1')
chosen=$(printf '%s\n' "$out" | sed -n 's/^EffectFile(3)=//p')
[ -n "$chosen" ] || fail "no effect file chosen: $out"
printf '%s\n' "$out" | grep -qx 'Form1.FJWZ.Caption=成功保存本次设置' || fail "no save message: $out"
expect "saved first line" "$(head -n 1 "$ini" | visible)" "_3_R"

out=$(run start 'get InstrumentSet(4,2)' 'get KeypadPercussion(3)' 'get StepTable(3,5).ShortMsg' 'get EffectFile(3)' \
          'get Form1.Check1.Value')
expect "saved values read back" "$out" "InstrumentSet(4,2)=99
KeypadPercussion(3)=46
StepTable(3,5).ShortMsg=$(( (46 + 35) * 256 + 6553600 + 153 ))
EffectFile(3)=$chosen
Form1.Check1.Value=1"

# A file of 52 lines takes the error path.
head -n 52 "$ini" > "$work/short.ini"
cp "$work/short.ini" "$ini"
set +e
out=$(run start 'get InstrumentSet(4,2)')
status=$?
set -e
expect "status after the error path" "$status" 0
expect "error path" "$(printf '%s\n' "$out" | tail -n 2)" "box 提示|读取设置文件出错，软件需重新启动!
ended"
cmp -s "$work/short.ini" "$ini.bad" || fail "the broken file was not kept as tessaly.ini.bad"
cmp -s "$work/defaults.ini" "$ini" || fail "the defaults did not replace the broken file"

# The next start reads the defaults.
out=$(run start 'get InstrumentSet(4,2)' 'get Form1.Check1.Value')
expect "defaults after the error path" "$out" "InstrumentSet(4,2)=25
Form1.Check1.Value=0"
echo "ok"
