#!/bin/sh
# A company on a server, measured whole: makes a private cluster that waits for the disk as an office's does, a company of so many
# customers in it, runs the engine beside bare programs and an office at work, and removes it all. Takes minutes to hours; nothing else
# should run on the machine. Prints Markdown.
#
#   scripts/server-bench.sh [OPTION VALUE]...
#     --customers N     10000, 1000000 (as it is) or 5000000, which take some 40 MB, 2 GB or 9 GB below TMPDIR, and as much for "files"
#     --parts LIST      of lists,searches,queries,records,memory,model,start,desks,files (all)
#     --pairs N         of each job (5)
#     --desks LIST      offices on the server (1,8,32,64,128)
#     --seconds S       of an office's day (60)
#   PROGRAMS: a folder of programs that are taken as they are; without it they are built as they are installed, without assertions.
set -eu
cd "$(dirname "$0")/.."
mkdir -p build/logs
LOGS=$PWD/build/logs
. scripts/prepare.sh

usage() { sed -n '2,/^set /s/^# \{0,1\}//p' "$0"; }
customers=1000000 parts=lists,searches,queries,records,memory,model,start,desks,files pairs=5 desks=1,8,32,64,128 seconds=60
while [ $# -gt 0 ]; do
  case "$1" in
    --customers | --parts | --pairs | --desks | --seconds)
      [ $# -gt 1 ] || { usage >&2; exit 2; }
      eval "${1#--}=\$2"
      shift 2
      ;;
    --help) usage; exit 0 ;;
    *) usage >&2; exit 2 ;;
  esac
done
wants() { case ",$parts," in *",$1,"*) true ;; *) false ;; esac; }

if [ -n "${PROGRAMS:-}" ]; then
  programs=$(cd "$PROGRAMS" && pwd)
else
  # shellcheck disable=SC2086
  install_missing $BUILD_PACKAGES $BENCH_PACKAGES libqt6sql6-psql postgresql-15 >&2
  cmake --preset release -B build/bench-full -DORCUSSCH_BENCH=ON -DORCUSSCH_TESTS=ON >&2
  cmake --build build/bench-full --target suitefiles bench_server bench_memory bench_model bench_line bench_desktop bench_desks >&2
  programs=$PWD/build/bench-full/bin
fi
server=/usr/lib/postgresql/15/bin

home=$(mktemp -d "${TMPDIR:-/tmp}/pg.XXXXXX")
desk=$(mktemp -d "${TMPDIR:-/tmp}/desk.XXXXXX")
if [ "$(id -u)" = 0 ]; then chown postgres:postgres "$home"; fi
as_server() {
  if [ "$(id -u)" = 0 ]; then (cd / && setpriv --reuid postgres --regid postgres --clear-groups "$@"); else "$@"; fi
}
finish() {
  as_server "$server/pg_ctl" -D "$home/data" -m immediate -w stop >/dev/null 2>&1 || true
  rm -rf "$home" "$desk"
}
trap finish EXIT
trap 'exit 1' INT TERM
log=$LOGS/server-bench.log
: >"$log"
as_server "$server/initdb" -D "$home/data" -A trust -U office -E UTF8 --locale=C --no-sync >>"$log" 2>&1
# A connection a desk, and some to spare.
as_server "$server/pg_ctl" -D "$home/data" -l "$home/log" -w start \
  -o "-k $home -c listen_addresses= -c shared_buffers=1GB -c max_wal_size=4GB -c max_connections=200" </dev/null >>"$log" 2>&1

export PGUSER=office QT_QPA_PLATFORM=offscreen
"$server/psql" -h "$home" -d postgres -X -q -c 'CREATE DATABASE bench TEMPLATE template0'
place=postgresql://$(printf '%s' "$home" | sed 's|/|%2F|g')/bench/orv1/
"$programs/suitefiles" demo "$place" --company 1 --customers "$customers" >>"$log" 2>&1
"$server/psql" -h "$home" -d bench -X -q -c 'VACUUM ANALYZE'

# What reads comes first: the rest changes the company.
for area in lists searches queries; do
  if wants "$area"; then "$programs/bench_server" --pairs "$pairs" --area "$area" "$place"; fi
done
if wants memory; then
  printf '\nMemory of the list, %s customers: ' "$customers"
  "$programs/bench_memory" "$place"
  printf '\nMemory of query results, %s customers: ' "$customers"
  "$programs/bench_memory" --queries "$place"
fi
if wants model; then "$programs/bench_model" --pairs "$pairs" "$place"; fi
if wants start; then
  for delay in 0 5; do
    printf '\nA process that starts, %s ms each way:\n\n' "$delay"
    printf '| job | ms | 90th percentile | worst | processor | worst, processor |\n| --- | ---: | ---: | ---: | ---: | ---: |\n'
    "$programs/bench_line" --delay "$delay" --rounds 7 "$place" "$programs/bench_desktop" DESK 1 cold 2>>"$log"
  done
fi
if wants records; then "$programs/bench_server" --pairs "$pairs" --area records "$place"; fi
if wants desks; then
  printf '[Databases]\ndat.zdb Path=%sdat.zdb\nDefault Path=%s\n' "$place" "$place" >"$desk/orv1.ini"
  "$programs/bench_desks" --desks "$desks" --seconds "$seconds" --server "$(head -n 1 "$home/data/postmaster.pid")" "$desk"
fi
if wants files; then
  printf '\nThe same company as files:\n'
  mkdir "$desk/files"
  "$programs/suitefiles" create "$desk/files" --company 1 >>"$log" 2>&1
  "$programs/suitefiles" demo "$desk/files" --company 1 --customers "$customers" >>"$log" 2>&1
  "$programs/bench_desks" --desks 1,8,32 --seconds "$seconds" "$desk/files"
fi
