#!/usr/bin/env bash
# What a killed save leaves of its own is removed at the next start, and a
# shipped file that is missing, or was cut short by a full disk, is copied
# again; files that are not ours stay.
set -euo pipefail
source "$(dirname "$0")/driver_session.sh"

run start quit 'advance 4000' > /dev/null
effects=("$app"/音效/*.wav)
[ "${#effects[@]}" -ge 2 ] || fail "no sound effects were seeded"
cut=${effects[0]}
gone=${effects[1]}
size=$(stat -c %s "$cut")
: > "$cut"
rm "$gone"
touch "$app/.tessaly-save-Ab3dE9" "$app/演奏记录/.tessaly-save-Zz0099" "$app/音效/.tessaly-save-q1w2e3"
touch "$app/演奏记录/.tessaly-save-mine.txt"
echo mine > "$app/演奏记录/我的.txt"

run start quit 'advance 4000' > /dev/null
for leftover in "$app/.tessaly-save-Ab3dE9" "$app/演奏记录/.tessaly-save-Zz0099" "$app/音效/.tessaly-save-q1w2e3"; do
  [ ! -e "$leftover" ] || fail "left behind: $leftover"
done
[ -e "$app/演奏记录/.tessaly-save-mine.txt" ] || fail "a file not of ours was removed"
expect "the user's score" "$(cat "$app/演奏记录/我的.txt")" mine
expect "the cut effect copied again" "$(stat -c %s "$cut")" "$size"
[ -s "$gone" ] || fail "the missing effect was not copied again"
echo ok
