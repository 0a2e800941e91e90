#!/bin/sh
# Takes the pictures of the user's guide and the README anew, off screen, on a demonstration company.
#
#   docs/pictures/make.sh [BIN]      BIN: folder of custsearch and suitefiles (build/default/bin)
set -eu
cd "$(dirname "$0")"
here=$PWD
bin=${1:-$here/../../build/default/bin}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

printf '{"screens": [{"name": "office", "x": 0, "y": 0, "width": 1024, "height": 768, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}' \
  >"$work/screen.json"

# take SCHEME FOLDER: all pictures in that colour scheme.
take() {
  mkdir -p "$work/$1" "$2"
  "$bin/suitefiles" demo "$work/$1" --company 1 --customers 5000 --seed 1 >"$work/log"
  "$bin/suitefiles" temp "$work/$1" --user 1 >"$work/log"
  sed "s|@P@|$2|g" pictures.scn >"$work/$1.scn"
  ORCUSSCH_COLOR_SCHEME=$1 QT_QPA_PLATFORM="offscreen:configfile=$work/screen.json" "$bin/custsearch" --scenario "$work/$1.scn" \
    --front desktop --data "$work/$1" --local "$work/$1" --company 1 --user 1
}

take light "$here"
take dark "$work/dark-pictures"
mv "$work/dark-pictures/main.png" main-dark.png
mv "$work/dark-pictures/card-customer.png" card-customer-dark.png

if command -v xvfb-run >/dev/null && command -v xdotool >/dev/null; then
  mkdir -m 700 "$work/home"
  HOME=$work/home XDG_CONFIG_HOME=$work/home XDG_RUNTIME_DIR=$work/home ORCUSSCH_COLOR_SCHEME=light \
    xvfb-run -a -s "-screen 0 1024x768x24" "$here/windows.sh" "$bin" "$work/light" "$here"
fi

# 256 colours are enough for screens, and a third of the size.
if command -v convert >/dev/null; then
  for picture in *.png; do convert "$picture" -strip +dither -colors 256 "PNG8:$picture"; done
fi
