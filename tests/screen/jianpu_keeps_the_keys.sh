#!/usr/bin/env bash
# With the window "简谱" open beside the main window, the typing keys still
# play and still write the score: the keyboard's focus never leaves the main
# window, and the take the keys wrote is saved as the notation showed it.
# Then a demonstration score opened by "打开" plays with the window still up.
# Pictures of the screen are kept when KEEP_SHOTS names a folder.
# Usage: jianpu_keeps_the_keys.sh TESSALY SCREEN_JUDGE RAW_PEAK
set -euo pipefail
app="$1"
judge="$2"
raw_peak="$3"
source "$(dirname "$0")/screen_session.sh"
export SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$work/out.raw" TESSALY_AUDIO_PERIOD=128

# The row of score buttons under the score box (window pixels): 打开, 保存, 简谱.
open_x=649 save_x=692 jianpu_x=950 row_y=181

start_instrument
main=$(( $(window_id Tessaly201705) ))
xdotool windowactivate --sync "$main" 2>/dev/null || xdotool windowfocus --sync "$main"
sleep 0.5
click_in Tessaly201705 "$jianpu_x" "$row_y"
wait_window 简谱
active="$(xdotool getactivewindow)"
echo "active window $active, main window $main"
[ "$active" = "$main" ] || fail "the window 简谱 took the focus"

before=$(stat -c %s "$work/out.raw")
for key in g h j k l; do
  xdotool key "$key"
  sleep 0.6
done
xdotool key space  # the take ends with TZ
sleep 0.8
read -r _ loud < <("$raw_peak" "$work/out.raw" "$before")
echo "peak of the keys with the window open: $loud"
awk -v l="$loud" 'BEGIN { exit !(l > 0.01) }' || fail "the keys were silent"
[ "$(xdotool getactivewindow)" = "$main" ] || fail "the focus left the main window"
shot jianpu-keys

click_in Tessaly201705 "$save_x" "$row_y"
sleep 1.5
xdotool type --delay 20 "$work/take"
xdotool key Return
for _ in $(seq 1 50); do [ -f "$work/take(乐谱).txt" ] && break; sleep 0.1; done
[ -f "$work/take(乐谱).txt" ] || fail "the take was not saved"
take="$(tr -d '\r\n' < "$work/take(乐谱).txt")"
echo "the keys wrote: $take"
[[ "$take" =~ ^KC[0-9]+KD[0-9]+KE[0-9]+KF[0-9]+KG[0-9]+TZ$ ]] || fail "the take is not the five keys"
wait_window 简谱

# 打开: the dialog, a demonstration score, and play starts at once.
click_in Tessaly201705 "$open_x" "$row_y"
sleep 1.5
xdotool type --delay 20 "$TESSALY_APPDIR/演奏记录/茉莉花.txt"
xdotool key Return
sleep 4
wait_window 简谱
shot jianpu-audition
echo "the window 简谱 stayed up through the keys, the save and the audition"
