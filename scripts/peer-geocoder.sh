#!/bin/sh
# scripts/peer-geocoder.sh [COUNT]: COUNT (default 20000) addresses of a real county, understood and found by this system and by PostGIS's
# geocoder, side by side: how many, how far off, and how many a second of processor time. Prints Markdown.
#
# Makes a server of its own in a temporary folder, with no port to the world, and takes it away again. Wants streets, bench_streets,
# address_parts and orcussch_map built in BUILD (default build/default). All 20,000 take a quarter of an hour of an idle processor.
set -eu
cd "$(dirname "$0")/.."
. scripts/prepare.sh
install_missing postgresql-15 postgresql-15-postgis-3 postgresql-15-postgis-3-scripts python3 >&2
build=${BUILD:-build/default}
server=/usr/lib/postgresql/15/bin
county=tests/data/streets/meagher/tl_2021_30059_addrfeat.shp

# The server refuses to be root's.
as_server() { if [ "$(id -u)" = 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi; }
here=$(mktemp -d)
[ "$(id -u)" != 0 ] || chown postgres "$here"
stop() {
  as_server "$server/pg_ctl" -D "$here/data" -m immediate stop >/dev/null 2>&1 || true
  rm -rf "$here"
}
trap stop EXIT
as_server "$server/initdb" -D "$here/data" -A trust -E UTF8 --locale=C --no-sync >/dev/null
as_server "$server/pg_ctl" -D "$here/data" -l "$here/log" -w -o "-c listen_addresses='' -c unix_socket_directories='$here' -c fsync=off" start >/dev/null

sql() { as_server "$server/psql" -X -q -v ON_ERROR_STOP=1 -h "$here" "$@" >/dev/null; }
sql -d postgres -c "CREATE DATABASE peer"
sql -d peer -c "SET client_min_messages = error" -c "CREATE EXTENSION postgis" -c "CREATE EXTENSION fuzzystrmatch" \
  -c "CREATE EXTENSION address_standardizer" -c "CREATE EXTENSION postgis_tiger_geocoder" -c "SELECT tiger.install_pagc_tables()"
export PYTHONDONTWRITEBYTECODE=1
python3 tests/system/streets/peer_tables.py "$county" data/map/zip-places.tsv | sql -d peer
sql -d peer -c "SELECT tiger.install_missing_indexes()" -c "VACUUM ANALYZE"
PGUSER=$([ "$(id -u)" != 0 ] && id -un || echo postgres)
export PGUSER
python3 tests/system/streets/compare_peer.py "$build/bin" "$build/share/orcussch/map.zds" "$county" "$here" "${1:-20000}"
