#!/bin/sh
# The pictures that no scenario takes: the real map of all customers, and a preview. make.sh calls this on a screen that nobody sees.
#
#   windows.sh BIN DATA OUT      BIN: folder of custsearch; DATA: a demonstration company
set -eu
bin=$1
data=$2
out=$3

QT_QPA_PLATFORM=xcb "$bin/custsearch" --data "$data" --local "$data" --company 1 --user 1 --customer 898 >"$data/windows.log" 2>&1 &
program=$!
trap 'kill "$program" 2>/dev/null' EXIT

windows() { xdotool search --onlyvisible --name "$1" 2>/dev/null | sort -n; }

# wait_for NAME COUNT: until so many windows are there; gives the newest.
wait_for() {
  for second in $(seq 300); do
    [ "$(windows "$1" | wc -l)" -ge "$2" ] && break
    [ "$second" -lt 300 ] || { printf '%s\n' "windows.sh: no window \"$1\"" >&2; exit 1; }
    sleep 1
  done
  windows "$1" | tail -1
}

# press KEY: in the main screen.
press() {
  xdotool windowfocus "$main"
  sleep 1
  xdotool key "$1"
}

main=$(wait_for "Customer Maintenance" 1)
sleep 3

press ctrl+F7
sleep 5
map=$(wait_for "Plot Customer" 1)
sleep 5
# A rectangle around the states that lie together.
xdotool mousemove --window "$map" 425 262
sleep 1
xdotool mousedown 1
sleep 1
xdotool mousemove --window "$map" 500 330
sleep 1
xdotool mousemove --window "$map" 702 442
sleep 1
xdotool mouseup 1
sleep 1
xdotool mousemove 1010 740
sleep 5
import -window "$map" "$out/map-all.png"
xdotool windowfocus "$map" key Escape
sleep 3

press ctrl+shift+p
preview=$(wait_for "Customer Maintenance" 2)
sleep 3
import -window "$preview" "$out/preview.png"
