#!/bin/sh
# The benchmarks in a short form: a small company, few pairs, with the programs of the default build. Fails when a program fails
# or when the engine and the bare program deliver different rows; no time is asserted.
set -eu
cd "$(dirname "$0")/.."
mkdir -p build/logs
LOGS=$PWD/build/logs
. scripts/prepare.sh
build default bench_engine bench_memory bench_records bench_saves bench_desks suitefiles
programs=build/default/bin

log=$LOGS/bench-short.log
data=$(mktemp -d)
trap 'rm -rf "$data"' EXIT
"$programs/suitefiles" create "$data" --company 1 >"$log"
"$programs/suitefiles" demo "$data" --company 1 --customers "${BENCH_CUSTOMERS:-10000}" >>"$log" 2>&1
"$programs/bench_engine" --pairs "${BENCH_PAIRS:-3}" "$data"
"$programs/bench_memory" "$data" --write
"$programs/bench_memory" "$data" --queries
"$programs/bench_records" --pairs 1 --types 100 --words 100 --map-codes 100 "$data"
"$programs/bench_saves" "$data" 200
"$programs/bench_desks" --desks 4 --seconds 3 --think 20 "$data"
