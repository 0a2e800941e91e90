#!/bin/sh
# What becomes of saves while their server is stopped, killed, short of disk, or lost with another one taking over: a stream of numbered
# saves runs through each fault. Every save that was told as stored must be there, and none that was told as failed. Then a desk
# works on a server that only follows another. Needs postgresql-15; the full disk needs root, to mount one. Everything is made in a
# temporary folder and goes with it.
#
#   scripts/server-faults.sh [PROGRAMS]      PROGRAMS: a folder with saver, suitefiles and custsearch (build/default/bin)
set -u
cd "$(dirname "$0")/.." || exit 1
programs=$(readlink -f "${1:-build/default/bin}")
binaries=/usr/lib/postgresql/15/bin
[ -x "$binaries/initdb" ] || { echo "The server is not installed." >&2; exit 1; }
work=$(mktemp -d "${TMPDIR:-/tmp}/flt.XXXXXX") || exit 1
[ "$(id -u)" = 0 ] && chown postgres:postgres "$work"
chmod 755 "$work"
status=0
export PGUSER=office

as_server() { (cd / && if [ "$(id -u)" = 0 ]; then setpriv --reuid postgres --regid postgres --clear-groups "$@"; else "$@"; fi); }
clean() {
  for node in a b; do [ -d "$work/$node/data" ] && as_server "$binaries/pg_ctl" -D "$work/$node/data" -m immediate stop >/dev/null 2>&1; done
  mountpoint -q "$work/disk" 2>/dev/null && umount "$work/disk"
  rm -rf "$work"
}
trap clean EXIT

# node NAME: its socket's folder is $work/NAME/s.
make_node() {
  as_server mkdir -p "$work/$1/s"
  as_server "$binaries/initdb" -D "$work/$1/data" -A trust -U office -E UTF8 --locale=C --no-sync >"$work/initdb.log" 2>&1 || { cat "$work/initdb.log" >&2; exit 1; }
}
start() {
  # Behind a crash the processes that it has left must go first.
  for _ in $(seq 50); do
    as_server "$binaries/pg_ctl" -D "$work/$1/data" -l "$work/$1/log" -w start \
      -o "-k $work/$1/s -c listen_addresses= -c shared_buffers=32MB -c max_connections=40" </dev/null >/dev/null 2>&1 && return
    sleep 0.1
  done
  tail "$work/$1/log" >&2
  exit 1
}
stop() { as_server "$binaries/pg_ctl" -D "$work/$1/data" -m "$2" -w stop >/dev/null 2>&1; }
crash() { kill -9 "$(head -1 "$work/$1/data/postmaster.pid")"; }
ask() { psql -h "$work/$1/s" -d "${3:-books}" -X -q -A -t -c "$2"; }
escaped() { printf '%s' "$work/$1/s" | sed 's|/|%2F|g'; }
make_company() { "$programs/suitefiles" create "postgresql://$(escaped a)/${1:-books}/orv1/" --company 1 --year 2025 >/dev/null || exit 1; }

# saves HOSTS [DATABASE]: in the background, until they are compared.
saves() { "$programs/saver" "postgresql://$1/${2:-books}/orv1/customer.zdb" 600 >"$work/told" 2>"$work/saver.log" & saver=$!; }

# end_saves NODE DATABASE: once the fault is over they must be stored again.
end_saves() {
  told=$(wc -l <"$work/told")
  for _ in $(seq 300); do
    again=$(sed -n "$((told + 1)),\$p" "$work/told" | grep -c '^stored')
    [ "$again" -gt 20 ] && break
    sleep 0.1
  done
  [ "$again" -gt 20 ] || verdict="FAULT: it doesn't go on"
  kill "$saver" 2>/dev/null || { verdict="FAULT: the saver has ended"; cat "$work/saver.log" >&2; }
  wait "$saver" 2>/dev/null
  # What it was just saving is nobody's any more.
  ask "$1" "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE application_name LIKE 'ORCusSch %'" "$2" >/dev/null
}

# compare NODE NAME [lossy|unknown|exact] [DATABASE]: what was told with what is there. Where it can't be known, what was told as failed
# may be there, and some must have been.
compare() {
  verdict=ok
  end_saves "$1" "${4:-books}"
  ask "$1" "SELECT substr(\"LastName\", 2) FROM orv1_customer.\"Customers\" WHERE \"LastName\" LIKE 's%'" "${4:-books}" | sort >"$work/there"
  sed -n 's/^stored //p' "$work/told" | sort >"$work/stored"
  sed -n 's/^failed \([0-9]*\) .*/\1/p' "$work/told" | sort >"$work/failed"
  lost=$(comm -23 "$work/stored" "$work/there" | wc -l)
  false=$(comm -12 "$work/failed" "$work/there" | wc -l)
  numbers=$(sed -n 's/^failed [0-9]* //p' "$work/told" | sort | uniq -c | awk '{printf "%s%s x %s", (NR > 1 ? ", " : ""), $2, $1}')
  case ${3:-} in
    unknown) [ "$(wc -l <"$work/failed")" -gt 0 ] || verdict="FAULT: a success without the other server" ;;
    *) [ "$false" = 0 ] || verdict=FAULT ;;
  esac
  [ "$lost" = 0 ] || [ "${3:-}" = lossy ] || verdict=FAULT
  [ "$(wc -l <"$work/stored")" -gt 20 ] || verdict="FAULT: hardly a save"
  [ "$verdict" = ok ] || status=1
  printf '| %s | %s | %s (%s) | %s | %s | %s |\n' "$2" "$(wc -l <"$work/stored")" "$(wc -l <"$work/failed")" "${numbers:-none}" "$lost" "$false" "$verdict"
  ask "$1" 'DELETE FROM orv1_customer."Customers"' "${4:-books}"
}

echo "| fault, in a stream of saves | told as stored | told as failed | stored and lost | failed and there | |"
echo "| --- | ---: | --- | ---: | ---: | --- |"

# ---- one server
make_node a
start a
ask a 'CREATE DATABASE books TEMPLATE template0' postgres
make_company
for how in fast immediate; do
  saves "$(escaped a)"
  for _ in 1 2 3; do sleep 2; stop a "$how"; sleep 0.5; start a; done
  compare a "stopped ($how) and started, three times"
done
saves "$(escaped a)"
for _ in 1 2 3; do sleep 2; crash a; start a; done
compare a "killed (-9) and started, three times"
saves "$(escaped a)"
for _ in $(seq 30); do
  sleep 0.1
  ask a "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE application_name LIKE 'ORCusSch %'" >/dev/null
done
compare a "its connection ended, 30 times"

# ---- another server that must confirm is away
# A wait that is cancelled is answered with a success and a warning: stored here alone. That is no success; nobody knows what it will be.
ask a "ALTER SYSTEM SET synchronous_standby_names = 'away'"
ask a 'SELECT pg_reload_conf()' >/dev/null
saves "$(escaped a)"
for _ in 1 2 3 4 5; do
  sleep 0.6
  ask a "SELECT pg_cancel_backend(pid) FROM pg_stat_activity WHERE wait_event = 'SyncRep'" >/dev/null
done
ask a 'ALTER SYSTEM RESET synchronous_standby_names'
ask a 'SELECT pg_reload_conf()' >/dev/null
compare a "the confirming server away, the wait cancelled" unknown

# ---- a full disk
if [ "$(id -u)" = 0 ] && mkdir "$work/disk" && mount -t tmpfs -o size=24m tmpfs "$work/disk" 2>/dev/null; then
  mkdir "$work/disk/space" && chown -R postgres:postgres "$work/disk"
  ask a "CREATE TABLESPACE small LOCATION '$work/disk/space'" postgres
  ask a 'CREATE DATABASE small TEMPLATE template0 TABLESPACE small' postgres
  make_company small
  ask a 'CREATE TABLE filler AS SELECT 1 AS x' small
  saves "$(escaped a)" small
  sleep 2
  ask a "INSERT INTO filler SELECT n FROM generate_series(1, 10000000) AS n" small 2>/dev/null
  # What is left is little: other files of the server take it.
  as_server dd if=/dev/zero of="$work/disk/space/filler" bs=8192 count=4000 2>/dev/null
  sleep 3
  rm "$work/disk/space/filler"
  compare a "disk full, then room again" exact small
  ask a 'DROP DATABASE small WITH (FORCE)' postgres
  ask a 'DROP TABLESPACE small' postgres
  umount "$work/disk"
else
  echo "| disk full | left out: only root can mount one | | | | |"
fi

# ---- two servers
follow() {
  rm -rf "$work/b"
  as_server mkdir -p "$work/b/s"
  as_server "$binaries/pg_basebackup" -h "$work/a/s" -U office -D "$work/b/data" -R -X stream -c fast >/dev/null 2>&1 || exit 1
  start b
  until [ "$(ask a "SELECT count(*) FROM pg_stat_replication WHERE state = 'streaming'")" = 1 ]; do sleep 0.1; done
}
take_over() {
  follow
  ask a "ALTER SYSTEM SET synchronous_standby_names = '$1'"
  ask a 'SELECT pg_reload_conf()' >/dev/null
  sleep 0.5
  saves "$(escaped a),$(escaped b)"
  sleep 3
  crash a
  as_server "$binaries/pg_ctl" -D "$work/b/data" -w promote >/dev/null
  compare b "$2" "$3"
  # The second one is the first from now on.
  rm -rf "$work/a"
  as_server mkdir -p "$work/a/s"
  ask b "ALTER SYSTEM RESET synchronous_standby_names"
  stop b fast
  mv "$work/b/data" "$work/a/data"
  start a
}
take_over '*' "first server killed (-9), second takes over; synchronous" exact
take_over '' "the same, asynchronous (the last moments may be lost)" lossy

# ---- a desk on the second server: it may look, and is told so when it saves; what others do on the first one comes along
# desk NODE: its settings, in a folder of its own.
desk() {
  mkdir -p "$work/$1-desk"
  printf '[Databases]\nDefault Path=postgresql://%s/books/orv1/\n' "$(escaped "$1")" >"$work/$1-desk/orv1.ini"
  "$programs/suitefiles" temp "$work/$1-desk" --user 1 >/dev/null
}
follow
desk a
desk b
cat >"$work/first.scn" <<END
host UserID 1
host CompanyID 1
host ShowUser
  close
END
cat >"$work/change.scn" <<END
host UserID 1
host CompanyID 1
other customer.zdb "UPDATE Customers SET FirstName = 'seen' WHERE LastName = 'Name0300'"
END
cat >"$work/standby.scn" <<END
host UserID 1
host CompanyID 1
host ShowUser
  expect no log
  expect rows grid(0) 500
  expect at data(0) LastName Name0001
  key grid(0) PageDown
  type txtSearch(0) Name0300
  key txtSearch(0) Enter
  expect at data(0) LastName Name0300
  expect at data(0) FirstName Null
  run custsearch --scenario $work/change.scn --data $work/a-desk
  type txtSearch(0) Name0200
  key txtSearch(0) Enter
  type txtSearch(0) Name0300
  key txtSearch(0) Enter
  expect at data(0) FirstName seen
  click tb_EditRec
  type txtLastName Changed
  click tb_SaveRec
  expect log frmCustMain.RecordAdd 3027
  expect txtLastName Changed
  expect at data(0) LastName Name0300
  close
END
ask a "INSERT INTO orv1_customer.\"Customers\" (\"LastName\", \"Terms\", \"NonBillable\", \"DefaultPhoneNumber\")
  SELECT 'Name' || lpad(n::text, 4, '0'), 2, 0, 0 FROM generate_series(1, 500) AS n"
# The company's first session writes what every later one finds.
"$programs/custsearch" --scenario "$work/first.scn" --data "$work/a-desk" >"$work/desk.log" 2>&1 || { cat "$work/desk.log" >&2; status=1; }
# What is saved on the first one is on the second when it is told as stored.
ask a "ALTER SYSTEM SET synchronous_standby_names = '*'"
ask a 'ALTER SYSTEM SET synchronous_commit = remote_apply'
ask a 'SELECT pg_reload_conf()' >/dev/null
sleep 1
if "$programs/custsearch" --scenario "$work/standby.scn" --data "$work/b-desk" >"$work/desk.log" 2>&1; then
  echo "| a desk on the server that follows | looks, searches, pages, sees what is saved on the first one | a save (3027) | - | - | ok |"
else
  echo "| a desk on the server that follows | | | | | FAULT |"
  cat "$work/desk.log" >&2
  status=1
fi
exit $status
