#!/bin/sh
# Installs what is missing, builds, makes a demonstration company if there is none, and opens the customer screens. Without
# a display it does the main job in the real windows off screen and tells where the pictures are.
#
#   ./run.sh [--server] [--customers COUNT] [custsearch options]
#
# --server: the company lies on a PostgreSQL server of its own, made for this run and taken away at its end.
set -eu
cd "$(dirname "$0")"
mkdir -p build/logs
LOGS=$PWD/build/logs
. scripts/prepare.sh

customers=5000
server=
while :; do
  case ${1:-} in
    --customers) customers=$2; shift 2 ;;
    --server) server=yes; shift ;;
    *) break ;;
  esac
done

# shellcheck disable=SC2086
install_missing $BUILD_PACKAGES $RUN_PACKAGES ${server:+postgresql-15}
say "Building ..."
build default custsearch suitefiles orcussch_map

data=${ORCUSSCH_DATA:-$PWD/run/company}
if [ -n "$server" ]; then
  # The library's folder of a desk: a settings file that leads to the server, and the files that aren't a company's.
  data=$PWD/run/desk
  mkdir -p "$data"
  export PGUSER=office
  trap 'tests/scenarios/server.sh stop "$data/server"' EXIT
  tests/scenarios/server.sh start "$data/server"
  psql -h "$(cat "$data/server/socket")" -d postgres -X -q -c 'CREATE DATABASE books TEMPLATE template0'
  place=postgresql://$(sed 's|/|%2F|g' "$data/server/socket")/books/orv1/
  printf '[Databases]\nDefault Path=%s\n' "$place" >"$data/orv1.ini"
fi
if [ -n "$server" ] || [ ! -d "$data/data/orv1" ]; then
  say "Making a demonstration company with $customers customers ${place:+on a server and }in $data ..."
  mkdir -p "$data"
  build/default/bin/suitefiles demo "$data" --company 1 --customers "$customers" --seed 1 --date "$(date +%F)"
fi

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  status=0
  build/default/bin/custsearch --data "$data" --local "$data" --company 1 --user 1 "$@" || status=$?
  [ "$status" = 3 ] && say "No customer was chosen."
  [ "$status" = 0 ] || [ "$status" = 3 ]
  exit $?
fi

say "There is no display: doing the main job in the windows off screen."
pictures=$PWD/run/pictures
mkdir -p "$pictures"
build/default/bin/suitefiles temp "$data" --user 1
sed "s|@PICTURES@|$pictures|g" scripts/main-job.scn >"$LOGS/main-job.scn"
printf '{"screens": [{"name": "office", "x": 0, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}' \
  >"$LOGS/screen.json"
QT_QPA_PLATFORM="offscreen:configfile=$LOGS/screen.json" build/default/bin/custsearch --scenario "$LOGS/main-job.scn" --front desktop \
  --data "$data" --local "$data" --company 1 --user 1
say "The pictures are in $pictures:"
ls "$pictures"
