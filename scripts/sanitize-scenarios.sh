#!/bin/sh
# The scenarios on the robot, with and without the code for large files, under address and undefined-behaviour sanitizers: all
# of them, or COUNT chosen by SEED (default: the day of the year, so that each day's choice is another one).
#
#   scripts/sanitize-scenarios.sh [COUNT [SEED]]
set -u
cd "$(dirname "$0")/.." || exit 1
count=${1:-all}
seed=${2:-$(date +%j)}
mkdir -p build/logs
LOGS=$PWD/build/logs
log=$LOGS/sanitize-scenarios.log
. scripts/prepare.sh
build instrumented custsearch suitefiles || exit 1

every='^scenario/.*\.(robot|live)$'
if [ "$count" = all ]; then
  ctest --preset instrumented -R "$every" >"$log" 2>&1
  status=$?
  said="all scenarios"
else
  # ctest takes tests by number: the first as a range of one, the others behind it.
  chosen=$(ctest --preset instrumented -N -R "$every" | sed -n 's/^ *Test *#\([0-9]*\):.*/\1/p' |
    awk -v seed="$seed" 'BEGIN { srand(seed) } { print rand(), $1 }' | sort -n | head -n "$count" | cut -d' ' -f2 | sort -n)
  [ -n "$chosen" ] || { say "There is no scenario to run."; exit 1; }
  first=$(printf '%s\n' "$chosen" | head -n 1)
  # shellcheck disable=SC2086
  ctest --preset instrumented -I "$first,$first,1,$(printf '%s\n' "$chosen" | paste -sd, -)" >"$log" 2>&1
  status=$?
  said="$(printf '%s\n' "$chosen" | wc -l) scenarios chosen by seed $seed"
fi
grep -E 'tests passed|\(Failed\)|\(Timeout\)' "$log"
[ $status -eq 0 ] || tail -n 80 "$log"
say "   $said; all of it is in $log"
exit $status
