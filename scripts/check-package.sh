#!/usr/bin/env bash
# Installs the Debian package into a pristine Debian 12 root, as a user would
# (apt-get install ./tessaly_*.deb, which fetches what it depends on), then
# starts the installed program under a virtual display as an ordinary user:
# the menu entry's command must open the main window, write the settings and
# sound a key. Run by hand as root (minutes, and it downloads); not a test of
# ctest.   scripts/check-package.sh build/tessaly_*.deb [OUTDIR]
# The bare root made by debootstrap is kept in $CHECK_ROOT (default
# /var/tmp/tessaly-pkgcheck) and copied afresh for every check.
set -euo pipefail
deb=$(realpath "$1")
out=$(realpath -m "${2:-build/package-check}")
base=${CHECK_ROOT:-/var/tmp/tessaly-pkgcheck}
mkdir -p "$base" "$out"
[ -x "$base/base/bin/bash" ] ||
  debootstrap --variant=minbase bookworm "$base/base" http://deb.debian.org/debian
root=$(mktemp -d "$base/root.XXXXXX")
cleanup() {
  local status=$?
  # Anything still running in the root keeps its /dev busy.
  for p in /proc/[0-9]*; do
    [ "$(readlink "$p/root" 2>/dev/null)" = "$root" ] && { kill -9 "${p#/proc/}" 2>/dev/null || true; }
  done
  for m in dev/pts dev proc sys; do umount -l "$root/$m" 2>/dev/null || true; done
  rm -rf --one-file-system "$root" || true
  exit "$status"
}
trap cleanup EXIT
cp -a "$base/base/." "$root/"
for m in proc sys dev dev/pts; do mount --bind "/$m" "$root/$m"; done
cp /etc/resolv.conf "$root/etc/resolv.conf"
cp "$deb" "$root/tmp/"
in_root() { chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 "$@"; }

in_root apt-get update -qq
echo "== apt-get install ./$(basename "$deb")"
in_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q "./tmp/$(basename "$deb")" > "$out/install.log" 2>&1 ||
  { tail -30 "$out/install.log"; exit 1; }
tail -3 "$out/install.log"
in_root dpkg-query -W -f='${Package} ${Version} ${Installed-Size} KiB installed\nDepends: ${Depends}\n' tessaly
in_root sh -c 'dpkg-query -W -f="\${Status}\n" | grep -c "install ok installed"' | sed 's/$/ packages in the root/'
grep -q '^Exec=tessaly %f' "$root/usr/share/applications/io.github.tessaly.Tessaly.desktop"
[ -f "$root/usr/share/icons/hicolor/48x48/apps/io.github.tessaly.Tessaly.png" ]

# What the check itself needs: a virtual display, key presses, a picture.
in_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
  xvfb xauth xdotool imagemagick > "$out/tools.log" 2>&1 || { tail -30 "$out/tools.log"; exit 1; }
in_root useradd -m musician
cat > "$root/home/musician/start.sh" <<'SH'
#!/bin/sh
# The menu entry's command, with the audio written to a file (no sound card here).
cd "$HOME"
export SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE=$HOME/out.raw
tessaly > tessaly.log 2>&1 &
pid=$!
window=""
for i in $(seq 1 100); do
  window=$(xdotool search --onlyvisible --name '^Tessaly201705$' 2>/dev/null | head -1)
  [ -n "$window" ] && break
  sleep 0.3
done
[ -n "$window" ] || { echo "the main window never showed"; cat tessaly.log; kill $pid; exit 1; }
xdotool windowfocus --sync "$window"; sleep 1.5
before=$(stat -c %s out.raw)
xdotool key g; sleep 1.5
import -window root screen.png
# The loudest sample (32-bit float, as the disk driver writes it) before and after the key.
peak() { od -An -v -tf4 -w4 | awk '{ v = $1 < 0 ? -$1 : $1; if (v > m) m = v } END { printf "%.4f", m }'; }
quiet=$(head -c "$before" out.raw | peak); loud=$(tail -c +"$((before + 1))" out.raw | peak)
echo "audio peak before the key: $quiet, after: $loud (full scale 1)"
kill -TERM $pid; wait $pid; echo "exit status after SIGTERM: $?"
awk -v q="$quiet" -v l="$loud" 'BEGIN { exit !(q < 0.0001 && l > 0.01) }' || { echo "the key did not sound"; exit 1; }
# As the file manager starts it on a score: the score goes into the box and plays.
tessaly "$HOME/.local/share/tessaly/演奏记录/小星星.txt" >> tessaly.log 2>&1 &
pid=$!
sleep 8
import -window root screen-file.png
kill -TERM $pid; wait $pid
SH
chmod +x "$root/home/musician/start.sh"
in_root su musician -s /bin/sh -c 'xvfb-run -a -s "-screen 0 1280x800x24" /home/musician/start.sh'
data=$root/home/musician/.local/share/tessaly
echo "== the data folder of the user: $(cd "$data" && echo *) / 演奏记录: $(cd "$data/演奏记录" && echo *)"
[ -s "$data/tessaly.ini" ] || { echo "no settings written"; exit 1; }
echo "settings: $(wc -l < "$data/tessaly.ini") lines"
cp "$root/home/musician/screen.png" "$root/home/musician/screen-file.png" "$root/home/musician/tessaly.log" "$out/"
echo "package check passed; picture and log in $out"
