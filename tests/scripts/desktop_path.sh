#!/usr/bin/env bash
# Drives the built desktop program under a virtual display with real key and mouse events: design the
# default ballast, zoom into the start of its lamp, calculate again in the advanced screen, walk the
# history, and leave.
# Usage: desktop_path.sh FOLDER_OF_THE_PROGRAMS
set -euo pipefail

bin=$1
for tool in Xvfb xdotool xwininfo; do
  command -v "$tool" >/dev/null || { echo "SKIPPED: $tool is missing"; exit 77; }
done
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; wait 2>/dev/null; rm -rf "$work"' EXIT
cp -r "$bin/Data" "$bin/graphics" "$work/"
cp "$bin/vantrel" "$work/"
mkdir -p "$work/config" "$work/share"

exec 5<>"$work/display"
Xvfb -displayfd 5 -screen 0 1280x800x24 2>"$work/xvfb.log" &
for _ in $(seq 100); do
  [ -s "$work/display" ] && break
  sleep 0.1
done
display=$(cat "$work/display")
[ -n "$display" ] || { echo "no virtual display"; cat "$work/xvfb.log"; exit 1; }
export DISPLAY=":$display" QT_QPA_PLATFORM=xcb
export LSAN_OPTIONS="suppressions=$(cd "$(dirname "$0")" && pwd)/leaks.supp:print_suppressions=0"
export XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/share" HOME="$work"

"$work/vantrel" >"$work/log" 2>&1 &
program=$!

fail() {
  echo "FAILED: $1"
  xwininfo -root -tree | grep -i '"' || true
  cat "$work/log"
  exit 1
}
# Waits for a window whose title matches, brings it to the front and gives it the keyboard.
window() {
  local id
  for _ in $(seq 100); do
    id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1 || true)
    if [ -n "$id" ]; then
      xdotool windowraise "$id" windowfocus --sync "$id"
      sleep 0.3
      return 0
    fi
    sleep 0.1
  done
  fail "no window '$1'"
}
gone() {
  for _ in $(seq 100); do
    xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
    sleep 0.1
  done
  fail "window '$1' stays"
}

window '^Vantrel'
xdotool key Return # Calculate has the keyboard at first
window 'Bill Of Materials \([0-9]+ items\)'
xdotool key Escape
gone 'Bill Of Materials'
window '^Vantrel'
# The start of the lamp: a drag with the right button chooses a fifth of the graph, and the samples
# of the view tell that it was zoomed into.
xdotool key alt+w
sleep 0.3
xdotool key m
window '^Time Domain'
eval "$(xdotool getwindowfocus getwindowgeometry --shell | grep -E '^(X|Y|WIDTH|HEIGHT)=')"
row=$((Y + HEIGHT / 2))
xdotool mousemove $((X + WIDTH * 4 / 10)) $row mousedown 3
for step in $(seq 20); do
  xdotool mousemove $((X + WIDTH * (40 + step) / 100)) $row
done
xdotool mouseup 3
sleep 0.3
xdotool key ctrl+plus
sleep 0.3
xdotool key alt+e
sleep 0.3
xdotool key e
window 'Export Table'
xdotool key Return
# The message that the file is written has the main window's title.
for _ in $(seq 100); do
  [ "$(xdotool search --onlyvisible --name '^Vantrel$' | wc -l)" -gt 1 ] && break
  sleep 0.1
done
window '^Vantrel$'
xdotool key Return
span=$(awk -F, 'NR == 2 { from = $1 } { to = $1 } END { print int(to - from) }' \
  "$work/Export/Time Domain Window.csv")
[ "$span" -gt 1000 ] && [ "$span" -lt 5000 ] || fail "the view holds $span us"
window '^Time Domain'
xdotool key Escape
gone 'Time Domain'
window '^Vantrel'
xdotool key ctrl+2
window 'Operating Points & Tank Components'
xdotool key F5 # once more, now from the advanced screen
for answer in 1 2 3; do # the message of a finished calculation
  id=$(xdotool search --onlyvisible --name '^Vantrel$' 2>/dev/null | tail -1 || true)
  [ -z "$id" ] && break
  xdotool windowfocus --sync "$id" key Return
  sleep 0.3
done
window 'Operating Points & Tank Components'
xdotool key alt+Left
sleep 0.3
# A click with the mouse: the first command button calculates.
eval "$(xdotool search --onlyvisible --name 'Operating Points & Tank' getwindowgeometry --shell %1 |
  grep -E '^(X|Y|WIDTH|HEIGHT)=')"
xdotool mousemove $((X + WIDTH / 3)) $((Y + HEIGHT / 3)) click 1
window 'Operating Points & Tank Components'
xdotool key ctrl+q
window '^Vantrel$'
xdotool key alt+n # the design need not be saved
for _ in $(seq 100); do
  kill -0 "$program" 2>/dev/null || break
  sleep 0.1
done
kill -0 "$program" 2>/dev/null && fail "the program does not end"
wait "$program" || fail "exit status $?"
grep -qi '\[Advanced\]' "$work/config.ini" || fail "no window position was kept"
echo "PASSED"
