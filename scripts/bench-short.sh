#!/bin/sh
# The benchmarks in a short form: a small company, few pairs. Fails when a program fails or when the engine and the bare
# program deliver different rows; no time is asserted.
set -eu
cd "$(dirname "$0")/.."
build=${BENCH_BUILD:-build/bench}
log=${LOGS:-$build}/bench-short.log
mkdir -p "$build" "$(dirname "$log")"
launcher=""
command -v ccache >/dev/null 2>&1 && launcher="-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"
{
  # shellcheck disable=SC2086
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORCUSSCH_BENCH=ON -DORCUSSCH_TESTS=OFF -DORCUSSCH_DESKTOP=OFF $launcher &&
    cmake --build "$build" --target bench_engine bench_memory bench_records bench_saves suitefiles
} >"$log" 2>&1 || { tail -n 30 "$log" >&2; exit 1; }

data=$(mktemp -d)
trap 'rm -rf "$data"' EXIT
"$build/bin/suitefiles" create "$data" --company 1 >>"$log"
"$build/bin/suitefiles" demo "$data" --company 1 --customers "${BENCH_CUSTOMERS:-10000}" >>"$log" 2>&1
"$build/bin/bench_engine" --pairs "${BENCH_PAIRS:-3}" "$data"
"$build/bin/bench_memory" "$data" --write
"$build/bin/bench_records" --pairs 1 --types 100 --words 100 "$data"
"$build/bin/bench_saves" "$data" 200
