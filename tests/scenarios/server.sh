#!/bin/sh
# The throw-away database server of the scenarios that run on one: a cluster of their own, reached by a socket in a temporary folder and
# by nothing else, which trusts everybody and never waits for the disk. As root it runs as the user that the server's package made.
#
#   server.sh start FOLDER     makes and starts it; what was started there before is ended
#   server.sh stop FOLDER
#
# FOLDER/socket names the folder of its socket.
set -u
what=$1
folder=$2
programs=$(dirname "$(readlink -f "$(command -v pg_config15 || command -v initdb || echo /usr/lib/postgresql/15/bin/initdb)")")

as_server() {
  if [ "$(id -u)" = 0 ]; then setpriv --reuid postgres --regid postgres --clear-groups "$@"; else "$@"; fi
}

stop() {
  [ -f "$folder/home" ] || return 0
  home=$(cat "$folder/home")
  if [ -d "$home/data" ]; then as_server "$programs/pg_ctl" -D "$home/data" -m immediate -w stop >/dev/null 2>&1; fi
  rm -rf "$home" "$folder/home" "$folder/socket" "$folder/templates"
}

start() {
  [ -x "$programs/initdb" ] || {
    printf 'The server is not installed: %s/initdb is missing.\n' "$programs" >&2
    exit 1
  }
  mkdir -p "$folder"
  stop
  # A short path: it stands in settings files, which cut what is longer than 126 characters.
  home=$(mktemp -d "${TMPDIR:-/tmp}/pg.XXXXXX") || exit 1
  printf '%s\n' "$home" >"$folder/home"
  mkdir "$home/s" "$folder/templates"
  [ "$(id -u)" = 0 ] && chown -R postgres:postgres "$home"
  cd / || exit 1
  as_server "$programs/initdb" -D "$home/data" -A trust -U office -E UTF8 --locale=C --no-sync >"$folder/server.log" 2>&1 &&
    as_server "$programs/pg_ctl" -D "$home/data" -l "$home/log" -w start \
      -o "-k $home/s -c listen_addresses= -c fsync=off -c full_page_writes=off -c autovacuum=off -c wal_level=minimal -c max_wal_senders=0 -c shared_buffers=64MB -c max_connections=60" \
      </dev/null >>"$folder/server.log" 2>&1 || {
    cat "$folder/server.log" >&2
    exit 1
  }
  # Somebody without any right of his own.
  psql -h "$home/s" -U office -d postgres -X -q -c 'CREATE ROLE clerk LOGIN' >>"$folder/server.log" 2>&1
  printf '%s\n' "$home/s" >"$folder/socket"
}

case $what in
  start) start ;;
  stop) stop ;;
  *)
    printf 'start or stop, not %s\n' "$what" >&2
    exit 2
    ;;
esac
