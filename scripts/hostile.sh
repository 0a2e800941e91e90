#!/bin/sh
# Interrupts every procedure of the screens at its yields with everything that a user or the host can do there: all cases,
# under address and undefined-behaviour sanitizers, as many at once as there are processors. Ends non-zero when anything was
# found; each line names the words that repeat its case.
#
#   scripts/hostile.sh [options of hostile_yields, such as --share 10, --only phones/ or --server]
#
# With --server the company lies on a server of the tests' own; each case then has a new database, which takes some ten times as long.
set -u
cd "$(dirname "$0")/.." || exit 1
mkdir -p build/logs
LOGS=$PWD/build/logs
. scripts/prepare.sh

preset=${HOSTILE_PRESET:-instrumented}
parts=${HOSTILE_PARTS:-$(nproc)}
build "$preset" hostile_yields || exit 1

begun=$(date +%s)
part=0
children=""
while [ "$part" -lt "$parts" ]; do
  "build/$preset/bin/hostile_yields" --notes --part "$part/$parts" "$@" >"$LOGS/hostile-$part.log" 2>&1 &
  children="$children $!"
  part=$((part + 1))
done
status=0
for child in $children; do wait "$child" || status=1; done

part=0
while [ "$part" -lt "$parts" ]; do
  grep -E '^(FAULT|CRASH|      |hostile yields:)' "$LOGS/hostile-$part.log"
  part=$((part + 1))
done
say "All parts: $([ $status -eq 0 ] && echo clean || echo FAILED), $(($(date +%s) - begun)) s; reports by frequency are in $LOGS/hostile-*.log"
exit $status
