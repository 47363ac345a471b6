#!/usr/bin/env bash
# Files and folders in the way: the program says what it cannot use and ends,
# or goes on without the file, and never aborts, hangs or loses the user's file.
set -uo pipefail
driver=$1
work=$(mktemp -d)
trap 'chmod -R u+rwx "$work" 2>/dev/null; rm -rf "$work"' EXIT

fail() { echo "FAIL: $*" >&2; exit 1; }
# run APPDIR COMMAND...: the driver's output; its status in $status.
run() {
  local app=$1
  shift
  out=$(printf '%s\n' "$@" | timeout 60 "$driver" --appdir "$app" 2>&1)
  status=$?
}

# The data folder is a file, or lies below one.
touch "$work/afile"
for app in "$work/afile" "$work/afile/below"; do
  run "$app" start
  [ "$status" = 1 ] || fail "status $status for data folder $app: $out"
  # The driver shows the data folder as $APPDIR/.
  printf '%s\n' "$out" | grep -q '^box |无法使用数据文件夹“\$APPDIR/”' || fail "no box naming the folder: $out"
  [ "$(printf '%s\n' "$out" | tail -n 1)" = ended ] || fail "not ended: $out"
done

# A broken settings file whose copy cannot be kept stays as the user left it.
app=$work/app
run "$app" start quit
printf ' 3 \r\n' > "$app/tessaly.ini"
mkdir "$app/tessaly.ini.bad"
run "$app" start
[ "$status" = 0 ] || fail "status $status on the error path: $out"
printf '%s\n' "$out" | grep -q '^box 提示|读取设置文件出错，软件需重新启动!$' || fail "no settings message: $out"
[ "$(cat "$app/tessaly.ini")" = $' 3 \r' ] || fail "the user's settings file was replaced with no copy kept"
rmdir "$app/tessaly.ini.bad"

# A settings file that cannot be read at all is not replaced either.
if [ "$(id -u)" != 0 ]; then
  chmod 000 "$app/tessaly.ini"
  run "$app" start
  chmod 644 "$app/tessaly.ini"
  [ "$(cat "$app/tessaly.ini")" = $' 3 \r' ] || fail "an unreadable settings file was replaced"
fi

# A directory or a FIFO where the settings file should be: the error path, no abort, no hang.
rm "$app/tessaly.ini"
mkdir -p "$app/tessaly.ini/inner"
run "$app" start
[ "$status" = 0 ] || fail "status $status with a directory as settings file: $out"
printf '%s\n' "$out" | grep -q '读取设置文件出错' || fail "no message for a directory: $out"
[ -d "$app/tessaly.ini/inner" ] || fail "the directory was touched"
rm -r "$app/tessaly.ini"
mkfifo "$app/tessaly.ini"
run "$app" start
[ "$status" = 0 ] || fail "status $status with a FIFO as settings file (124 is a hang): $out"
[ -p "$app/tessaly.ini" ] || fail "the FIFO was replaced"
rm "$app/tessaly.ini"

# A score "file" that is a directory or a FIFO opens as nothing.
mkdir "$app/演奏记录/folder.txt"
mkfifo "$app/演奏记录/fifo.txt"
run "$app" start 'dialog 演奏记录/folder.txt' 'click Form1.Yuepu(2)' 'get Form1.Text3.Text' \
                 'dialog 演奏记录/fifo.txt' 'click Form1.Yuepu(2)' 'get Form1.Text3.Text'
[ "$status" = 0 ] || fail "status $status opening a folder or FIFO as a score: $out"
[ "$(printf '%s\n' "$out" | grep -c '^Form1.Text3.Text=$')" = 2 ] || fail "text after opening a non-file: $out"
echo ok
