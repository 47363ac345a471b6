#!/usr/bin/env bash
# The shared-mime-info file, in a database of its own: edit files and rhythm
# files are known by their content, whatever their name, and a Windows
# shortcut, which shares the ".lnk" ending, stays one.
set -euo pipefail
folder=$1
data=$2
command -v update-mime-database >/dev/null && command -v gio >/dev/null ||
  { echo "FAIL: update-mime-database or gio is missing (./test.sh installs them)" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

mkdir -p "$work/mime/packages" "$work/files"
cp "$folder/io.github.tessaly.Tessaly.mime.xml" "$work/mime/packages/"
# The Windows shortcut as newer databases and other programs declare it.
cat > "$work/mime/packages/shortcut.xml" <<'XML'
<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="application/x-ms-shortcut">
    <comment>Windows link</comment>
    <glob pattern="*.lnk"/>
    <magic priority="60"><match type="string" value="L\0\0\0\x01\x14\x02\0" offset="0"/></magic>
  </mime-type>
</mime-info>
XML
update-mime-database "$work/mime" 2>/dev/null

f=$work/files
empty_bar() { printf '%s\r\n' "$1"; for t in 1 2 3 4 5 6 7; do printf '%032d\r\n' 0 | tr 0 -; done
              for t in 1 2 3 4 5; do printf '%016d\r\n' 0 | tr 0 -; done; }
empty_bar 0000 > "$f/歌.lnk"
empty_bar 0000 > "$f/bare-edit"
empty_bar 0000005031504E505250223C183C043C0150035004502950113C20000046 > "$f/settings-head"
tr -d '\r' < "$f/settings-head" > "$f/lf-edit"
printf 'L\0\0\0\x01\x14\x02\0\0\0\0\0' > "$f/快捷方式.lnk"
cp "$data/演奏记录/01慢四.bin" "$f/节奏.bin"
cp "$data/演奏记录/01慢四.bin" "$f/bare-rhythm"
iconv -f UTF-8 -t GB18030 "$data/演奏记录/03华尔兹.bin" > "$f/gb-rhythm"
cp "$data/演奏记录/茉莉花.txt" "$f/score.txt"
printf 'firmware\0\0\0' > "$f/other"

type_of() {
  XDG_DATA_HOME=$work XDG_DATA_DIRS=/usr/share gio info -a standard::content-type "$f/$1" |
    sed -n 's/^ *standard::content-type: //p'
}
check() { local got; got=$(type_of "$1"); [ "$got" = "$2" ] || fail "$1 is $got, not $2"; echo "$1: $got"; }
check 歌.lnk application/x-tessaly-edit
check bare-edit application/x-tessaly-edit
check settings-head application/x-tessaly-edit
check lf-edit application/x-tessaly-edit
check 快捷方式.lnk application/x-ms-shortcut
check 节奏.bin application/x-tessaly-rhythm
check bare-rhythm application/x-tessaly-rhythm
check gb-rhythm application/x-tessaly-rhythm
check score.txt text/plain
check other application/octet-stream
