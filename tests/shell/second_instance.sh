#!/usr/bin/env bash
# Two real processes on one folder: while the first runs, a second start shows
# its notice and ends without touching any file.
set -euo pipefail
driver=$1
work=$(mktemp -d)
first=""
cleanup() {
  exec 3>&- 2>/dev/null || true
  [ -n "$first" ] && kill "$first" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT
app=$work/app
fail() { echo "FAIL: $*" >&2; exit 1; }
snapshot() { (cd "$app" && find . -exec ls -ld --time-style=full-iso {} + | sort && find . -type f -exec sha256sum {} + | sort); }

# The first instance starts and then waits on its input.
mkfifo "$work/input"
"$driver" --appdir "$app" < "$work/input" > "$work/first.out" &
first=$!
exec 3> "$work/input"
printf 'start\nget Form1.Visible\n' >&3
for _ in $(seq 200); do
  grep -q '^Form1.Visible=-1$' "$work/first.out" && break
  sleep 0.05
done
grep -q '^Form1.Visible=-1$' "$work/first.out" || fail "the first instance did not start: $(cat "$work/first.out")"

before=$(snapshot)
out=$(printf 'start\nget Form1.Visible\n' | "$driver" --appdir "$app")
[ "$out" = "box 提示|你已经运行这个应用程序了！
ended" ] || fail "second instance printed: $out"
[ "$before" = "$(snapshot)" ] || fail "the second instance changed the folder"

# Once the first has ended, the program starts again.
exec 3>&-
wait "$first"
first=""
out=$(printf 'start\nget Form1.Visible\n' | "$driver" --appdir "$app" | tail -n 1)
[ "$out" = "Form1.Visible=-1" ] || fail "no start after the first ended: $out"
echo "ok"
