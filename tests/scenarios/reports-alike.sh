#!/bin/sh
# reports-alike.sh PROGRAMS WORK SERVER: every report of the catalogue over a query's customers, once with the company in files and once on
# the server that server.sh has started in SERVER: word for word the same pages, each word at the same place.
#
# The queried customers lie in a local file in both cases; on a server they travel there to meet its tables.
set -u
programs=$1
here=$2/reports-alike.$$
socket=$(cat "$3/socket")
database=reports$$
failures=0
mkdir -p "$here/home"
export PGUSER=office HOME="$here/home" XDG_STATE_HOME="$here/home/state" XDG_RUNTIME_DIR="$here/home" QT_QPA_PLATFORM=offscreen

stop() {
  printf '%s\n' "$1" >&2
  exit 1
}
administer() { psql -h "$socket" -d postgres -X -q -v ON_ERROR_STOP=1 -c "$1" || stop "$1"; }

"$programs/suitefiles" demo "$here/files" --company 1 --customers 300 --seed 3 --date "$(date +%F)" >"$here/log" 2>&1 || stop "$(cat "$here/log")"
administer "CREATE DATABASE $database TEMPLATE template0"
place=postgresql://$(printf '%s' "$socket" | sed 's|/|%2F|g')/$database/orv1/
"$programs/suitefiles" copy "$here/files" "$place" --company 1 >"$here/log" 2>&1 || stop "$(cat "$here/log")"
mkdir "$here/server"
find "$here/files" -maxdepth 1 -iname '*.rpt' -exec cp {} "$here/server" \;
printf '[Databases]\nDefault Path=%s\n' "$place" >"$here/server/orv1.ini"

# print WHERE NUMBER: its words with their places.
print() {
  "$programs/custsearch" report "$2" --company 1 --data "$here/$1" --customers "City Like '*a*'" --to "$here/$1.pdf" >"$here/log" 2>&1 ||
    stop "report $2 of $1: $(cat "$here/log")"
  pdftotext -bbox "$here/$1.pdf" - | grep '<page\|<word' >"$here/$1.words"
}
reports=$("$programs/suitefiles" sql "$here/files/data/orv1/customer.zdb" "SELECT Sequence FROM CUReports ORDER BY Sequence" --no-header)
words=0
for number in $reports; do
  print files "$number"
  print server "$number"
  words=$((words + $(wc -l <"$here/files.words")))
  cmp -s "$here/files.words" "$here/server.words" && continue
  printf 'report %s has other pages on the server:\n' "$number" >&2
  diff "$here/files.words" "$here/server.words" | head -5 >&2
  failures=$((failures + 1))
done
administer "DROP DATABASE $database WITH (FORCE)"
if [ "$(printf '%s\n' "$reports" | wc -l)" -lt 20 ] || [ "$words" -lt 5000 ]; then stop "too little was printed: $words words"; fi
[ "$failures" -eq 0 ] || exit 1
rm -rf "$here"
