#!/usr/bin/env bash
# The chord pattern file HxJzMx.txt over several starts in one folder: the
# first start writes it from the built-in figures, "保 存" appends only the
# figures it does not hold yet, any bytes at all are read without harm, and a
# 1001st line ends the program with its bounds failure.
set -euo pipefail
source "$(dirname "$0")/driver_session.sh"
file=$app/HxJzMx.txt

# First start in an empty folder: 113 figures and two empty lines, CR LF.
[ ! -e "$file" ] || fail "the file exists before the first start"
run start > /dev/null
[ -f "$file" ] || fail "the first start wrote no pattern file"
expect "line count" "$(wc -l < "$file")" 115
expect "lines ending in CR" "$(grep -c $'\r$' "$file")" 115
expect "first line" "$(head -n 1 "$file")" $'LC------LC------\r'
expect "ninth line" "$(sed -n 9p "$file")" $'XZMCHGHEHGHEHCKG\r'
expect "last figure" "$(sed -n 113p "$file")" $'LGWCWEWCWGWELGWC\r'
expect "two empty lines" "$(sed -n 114,115p "$file" | tr -d '\r')" ""
cp "$file" "$work/new.txt"

# Two new figures and one the file holds; the second save finds all three.
run start 'set Form1.Text4.Text CCCCCCCCCCCCCCCC' 'set Form1.Text5.Text LC------LC------' \
    'set Form1.Text7.Text KCKEKG' 'click Form1.Command4' 'click Form1.Command4' > /dev/null
expect "line count after saving" "$(wc -l < "$file")" 117
expect "the old lines kept" "$(head -n 115 "$file" | cmp - "$work/new.txt" && echo same)" same
expect "new lines in box order" "$(tail -n 2 "$file" | tr -d '\r')" "CCCCCCCCCCCCCCCC
KCKEKG"

# The figures of a later start are lines of the file.
out=$(run start 'get Form1.Text4.Text' 'get Form1.Text5.Text' 'get Form1.Text7.Text')
while IFS='=' read -r name figure; do
  grep -qxF "$figure"$'\r' "$file" || fail "$name holds [$figure], which is not a line of the file"
done <<< "$out"

# Bytes that are neither figures nor text: read, drawn, played without harm.
LC_ALL=C awk 'BEGIN { srand(7); for (i = 0; i < 3000; i++) printf "%c", int(rand() * 256) }' > "$file"
printf '\0\xff\xfe--\r\n\x80CC' >> "$file"
run start 'click Form1.Xxk(1)' 'click Form1.Check6' 'advance 4000' 'get Form1.Check6.Value' > "$work/out.txt" ||
  fail "a start on a binary pattern file failed: $(cat "$work/out.txt")"

# A thousand lines are the limit; one more is a bounds failure.
for i in $(seq 1000); do printf 'KC--KE--KG--KE--\r\n'; done > "$file"
run start 'get Form1.Text4.Text' > "$work/out.txt"
expect "a thousand lines" "$(cat "$work/out.txt")" "Form1.Text4.Text=KC--KE--KG--KE--"
printf 'CC--------------\r\n' >> "$file"
set +e
out=$(run start 'get Form1.Text4.Text')
status=$?
set -e
expect "status with 1001 lines" "$status" 3
expect "the bounds failure naming the file" "$out" "fatal 下标越界（超过 1000 行：$app/HxJzMx.txt）"
