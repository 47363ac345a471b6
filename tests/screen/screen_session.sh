# Sourced by the screen tests: the real program on the X server xvfb-run gave
# us, under a real window manager (openbox), looked at as a user sees it:
# pictures of the whole screen, controls clicked where they stand.
#
# Needs $app (the instrument) and $judge (screen_judge). Gives:
#   start_instrument            starts it in a throw-away data folder, waits for the main window
#   client TITLE                prints "X Y W H" of the window named TITLE (its client area)
#   frame TITLE                 prints "X Y" of that window's frame, where the window manager put it
#   wait_window TITLE           waits until a window of that name shows
#   click_in TITLE X Y          a click at X,Y of that window's client area
#   shot NAME                   a picture of the whole screen, $work/NAME.png
#   judge ARGS                  screen_judge, its measure shown
work="$(mktemp -d)"
pid=""
wm=""
session_pid=$$
end_session() {
  # Only the test's own shell ends the session, never a subshell of it.
  [ "$BASHPID" = "$session_pid" ] || return 0
  [ -n "$pid" ] && { kill "$pid" 2>/dev/null || true; wait "$pid" 2>/dev/null || true; }
  [ -n "$wm" ] && kill "$wm" 2>/dev/null
  [ -n "${KEEP_SHOTS:-}" ] && cp "$work"/*.png "$KEEP_SHOTS"/ 2>/dev/null
  rm -rf "$work"
}
trap end_session EXIT
fail() { echo "FAIL: $*"; exit 1; }

export TESSALY_APPDIR="$work/app"
export TESSALY_SOUNDFONT=/usr/share/sounds/sf2/TimGM6mb.sf2
export SDL_AUDIODRIVER=dummy
export XDG_RUNTIME_DIR="$work/run" && mkdir -m 700 "$work/run"
export XDG_CONFIG_HOME="$work/config"

openbox >"$work/openbox.log" 2>&1 &
wm=$!
for _ in $(seq 1 50); do
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
  sleep 0.1
done

# The window tree; a window that goes while it is read spoils the reading,
# which is then read again.
window_tree() {
  local tree
  for _ in 1 2 3 4 5; do
    tree="$(xwininfo -root -tree 2>/dev/null)" && { printf '%s\n' "$tree"; return 0; }
    sleep 0.05
  done
}

window_id() { window_tree | awk -v t="\"$1\": (" 'index($0, t) && !found { print $1; found = 1 }'; }

# The smallest window of that name: a box that bears the name of the window it opens over.
box_id() {
  window_tree | awk -v t="\"$1\": (" 'index($0, t) { split($0, a, ")  "); split(a[2], g, "x");
    if (!found || g[1] + 0 < w) { w = g[1] + 0; id = $1; found = 1 } } END { if (found) print id }'
}

# wait_window TITLE [box]: with "box", the smallest window of that name.
wait_window() {
  local id
  for _ in $(seq 1 300); do  # up to 30 s: a loaded machine opens windows slowly
    id="$(window_id "$1")"
    [ "${2:-}" = box ] && id="$(box_id "$1")"
    [ -n "$id" ] && xwininfo -id "$id" 2>/dev/null | grep -q IsViewable && { sleep 0.8; return 0; }
    sleep 0.1
  done
  fail "no window \"$1\" on the screen"
}

gone_window() {
  for _ in $(seq 1 50); do
    local id; id="$(window_id "$1")"
    { [ -z "$id" ] || ! xwininfo -id "$id" | grep -q IsViewable; } && return 0
    sleep 0.1
  done
  fail "the window \"$1\" is still on the screen"
}

client() {
  local id; id="$(window_id "$1")"
  [ "${2:-}" = box ] && id="$(box_id "$1")"
  [ -n "$id" ] || fail "no window \"$1\""
  xwininfo -id "$id" | awk '/Absolute upper-left X/ {x=$4} /Absolute upper-left Y/ {y=$4}
                            /^  Width/ {w=$2} /^  Height/ {h=$2} END {print x, y, w, h}'
}

frame() {
  # The frame is the client's parent; its place is what the window manager chose.
  local id parent; id="$(window_id "$1")"
  parent="$(xwininfo -id "$id" -children | awk '/Parent window id/ {print $4}')"
  xwininfo -id "$parent" | awk '/Absolute upper-left X/ {x=$4} /Absolute upper-left Y/ {y=$4} END {print x, y}'
}

click_in() {
  local geometry
  geometry="$(client "$1")"
  set -- "$1" "$2" "$3" $geometry
  xdotool mousemove $(($4 + $2)) $(($5 + $3)) click 1
  sleep 0.4
}

# One reading of the root window: what the X server shows, all windows as
# they stand. (xwd composes its picture window by window and paints the
# client area of a newly managed window black where it overlaps another.)
shot() { import -window root "$work/$1.png"; }

judge() { "$judge" "$@"; }

start_instrument() {
  "$app" >"$work/app.log" 2>&1 &
  pid=$!
  wait_window Tessaly201705
}
