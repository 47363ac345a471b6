#!/usr/bin/env bash
# Installs the build into a temporary prefix, moves the prefix elsewhere, and
# runs the installed tessaly-script and tessaly-render from there: each finds
# the data installed beside it, not the build's. A marker file added to the
# installed data shows which copy seeded a new data folder.
set -euo pipefail
build=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$work/installed" >/dev/null
mv "$work/installed" "$work/moved"
prefix=$work/moved
share=$prefix/share
for file in bin/tessaly bin/tessaly-render bin/tessaly-script \
            share/tessaly/演奏记录/01慢四.bin share/tessaly/演奏记录/茉莉花.txt share/tessaly/音效/钟声.wav \
            share/applications/io.github.tessaly.Tessaly.desktop share/metainfo/io.github.tessaly.Tessaly.metainfo.xml \
            share/mime/packages/io.github.tessaly.Tessaly.xml share/icons/hicolor/scalable/apps/io.github.tessaly.Tessaly.svg \
            share/icons/hicolor/16x16/apps/io.github.tessaly.Tessaly.png share/icons/hicolor/256x256/apps/io.github.tessaly.Tessaly.png \
            share/man/man1/tessaly.1 share/man/man1/tessaly-render.1 share/man/zh_CN/man1/tessaly.1; do
  [ -f "$prefix/$file" ] || fail "not installed: $file"
done
# Nothing of the build on the path, no named data folder.
export PATH="$prefix/bin:/usr/bin:/bin"
unset TESSALY_SHIPPED_DATA TESSALY_APPDIR
cd "$work"

# A score that plays the first rhythm file: what it sounds like tells which
# rhythms the export's program was seeded with.
printf 'JP1KC8KD8KE8KF8KG32TZ\r\n' > "$work/节奏.txt"
render() { TESSALY_APPDIR=$work/render-data tessaly-render "$work/节奏.txt" -o "$1" >/dev/null; }
render "$work/installed.mid"
TESSALY_SHIPPED_DATA=$build/data render "$work/built.mid"
cmp -s "$work/installed.mid" "$work/built.mid" || fail "the installed data differ from the build's"
[ "$(head -c 4 "$work/installed.mid")" = MThd ] || fail "tessaly-render wrote no MIDI file"

# Markers in the installed data only: a score, and a rhythm that sorts first.
printf 'KC8KD8KE8\r\n' > "$share/tessaly/演奏记录/安装标记.txt"
cp "$share/tessaly/演奏记录/04迪斯科.bin" "$share/tessaly/演奏记录/00标记.bin"

render "$work/marked.mid"
! cmp -s "$work/marked.mid" "$work/installed.mid" || fail "tessaly-render did not take the installed data"

out=$(printf 'start\nget Form1.Label11.Caption\nget Form1.File1.ListCount\nquit\n' |
      tessaly-script --appdir "$work/script-data")
grep -qx 'Form1.Label11.Caption=1★00标记.bin' <<<"$out" || fail "the installed rhythm is not the first: $out"
grep -qx 'Form1.File1.ListCount=10' <<<"$out" || fail "the installed rhythms are not listed: $out"
[ -f "$work/script-data/演奏记录/安装标记.txt" ] || fail "tessaly-script seeded its data from elsewhere"
[ "$(ls "$work/script-data/音效" | wc -l)" -eq 6 ] || fail "the six sound effects are not seeded"
echo "installed programs ran from $prefix"
