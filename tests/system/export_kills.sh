#!/bin/sh
# export_kills.sh PROGRAMS [KILLS [SEED]]: a report that goes to a file with nobody at a screen is killed at a random moment, again and
# again. Under the file's name there is then what had been there before or the whole new file, never a part of it, and the next run
# works as if nothing had been.
set -u
programs=$1
kills=${2:-12}
seed=${3:-1}
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen TMPDIR="$work/tmp"
mkdir "$TMPDIR"
failures=0
complain() { printf '%s\n' "$*" >&2; failures=$((failures + 1)); }

"$programs/suitefiles" demo "$work/books" --company 1 --customers 4000 --seed 5 >/dev/null 2>&1 || exit 1
report() { "$programs/custsearch" report ARCusLst.Rpt --data "$work/books" --customers "$2" --to "$1" >"$work/said" 2>&1; }
milliseconds() { echo $(($(date +%s%N) / 1000000)); }

# pages FILE: a sound PDF's texts; nothing of one that isn't.
pages() { qpdf --check "$1" >/dev/null 2>&1 && pdftotext -layout "$1" - 2>/dev/null; }
same() {
  case $1 in
    *.csv) cmp -s "$1" "$2" ;;
    *) [ -n "$(pages "$1")" ] && [ "$(pages "$1")" = "$(pages "$2")" ] ;;
  esac
}

# round ENDING CUSTOMERS: how such a run ends undisturbed, then kills of it.
cut=0
round() {
  whole=$work/whole.$1
  file=$work/out.$1
  before=$(milliseconds)
  report "$whole" "$2" || complain "$1 of $2: $(cat "$work/said")"
  lasts=$(($(milliseconds) - before))
  for kill in $(seq 1 "$kills"); do
    echo "of last week" >"$file"
    moment=$(awk -v seed="$((seed * 1000 + kill))" -v lasts="$lasts" 'BEGIN { srand(seed); printf "%.3f", rand() * lasts * 1.1 / 1000 }')
    "$programs/custsearch" report ARCusLst.Rpt --data "$work/books" --customers "$2" --to "$file" >/dev/null 2>&1 &
    run=$!
    sleep "$moment"
    kill -KILL "$run" 2>/dev/null
    wait "$run" 2>/dev/null
    if [ "$(head -c 12 "$file")" = "of last week" ]; then
      cut=$((cut + 1))
    else
      same "$file" "$whole" || complain "$1 of $2, killed after $moment s: a part of the file is there"
    fi
  done
  rm -f "$file"
  report "$file" "$2" || complain "$1 of $2, behind the kills: $(cat "$work/said")"
  same "$file" "$whole" || complain "$1 of $2, behind the kills: another file"
}
round csv all
round csv "State='MN'"
round pdf all
[ "$cut" -gt 0 ] || complain "no run was cut"
echo "$((3 * kills)) kills, $cut of them before the file had its name"
"$programs/suitefiles" check "$work/books" >"$work/said" || complain "the company: $(cat "$work/said")"

[ "$failures" = 0 ]
