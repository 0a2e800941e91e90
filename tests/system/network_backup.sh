#!/bin/sh
# network_backup.sh PROGRAMS NETWORK: a backup into a folder that lies on a network, whose files can't be opened as data files. NETWORK
# is the library that makes a folder look so.
set -u
programs=$1
network=$2
here=$(mktemp -d) || exit 1
trap 'rm -rf "$here"' EXIT
suitefiles=$programs/suitefiles

stop() {
  printf '%s\n' "$1" >&2
  cat "$here/log" >&2
  exit 1
}
# Everything below "net" is on the network.
there() { LD_PRELOAD=$network NETWORK_FOLDER=$here/net/ TMPDIR=$here/temporary "$suitefiles" "$@" >"$here/log" 2>&1; }

mkdir -p "$here/net/backups" "$here/temporary"
"$suitefiles" demo "$here/live" --company 1 --customers 200 >"$here/log" 2>&1 || stop "the company can't be made"

there create "$here/net/backups/new" --company 1 && stop "a data file was made on the network"
rm -rf "$here/net/backups/new"
there backup "$here/live" "$here/net/backups/monday" || stop "the backup failed"
grep -q '^5 data files copied' "$here/log" || stop "not all files were copied"
grep -q 'opened as a data file' "$here/log" && stop "a file on the network was opened"
[ -z "$(ls "$here/temporary")" ] || stop "the local copies were left"
there backup "$here/live" "$here/net/backups/tuesday" --through "$here/net/backups" && stop "copies were made on the network"
grep -q 'local disk' "$here/log" || stop "the reason is not told"
[ "$(ls "$here/net/backups")" = monday ] || stop "something else is left beside the backup"
cp -r "$here/net/backups/monday" "$here/restored"
"$suitefiles" check "$here/restored" >"$here/log" 2>&1 || stop "the restored copy is not sound"
