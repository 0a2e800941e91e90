#!/bin/sh
# The benchmarks whole: companies of 10,000, 1,000,000 and, with "5m", 5,000,000 customers, made once under DATA (default
# build/bench-data), the engine beside the bare program, waits for painting, memory, the toolkit's table model, the main
# screen's frames and reports. Prints Markdown.
#
# The main screen's records are measured on copies, below RECORDS (default: DATA).
#
#   scripts/bench.sh [5m]
set -eu
cd "$(dirname "$0")/.."
build=${BENCH_BUILD:-build/bench-full}
data=${DATA:-build/bench-data}
pairs=${BENCH_PAIRS:-21}
records=${RECORDS:-$data}
sizes="10000 1000000"
[ "${1:-}" = 5m ] && sizes="$sizes 5000000"

mkdir -p build/logs
LOGS=$PWD/build/logs
. scripts/prepare.sh
# shellcheck disable=SC2086
install_missing $BUILD_PACKAGES $BENCH_PACKAGES >&2
# What is measured is what is installed: without assertions.
cmake --preset release -B "$build" -DORCUSSCH_BENCH=ON -DORCUSSCH_TESTS=ON >&2
targets="bench_engine bench_memory bench_records bench_saves bench_parents bench_desks bench_reports bench_report_rows suitefiles"
for optional in bench_model bench_desktop bench_map bench_report_files; do
  cmake --build "$build" --target help | grep -q "^$optional:" && targets="$targets $optional"
done
# shellcheck disable=SC2086
cmake --build "$build" --target $targets >&2

folders=""
for size in $sizes; do
  folder=$data/$size
  if [ ! -e "$folder/data/orv1/customer.zdb" ]; then
    mkdir -p "$folder"
    "$build/bin/suitefiles" create "$folder" --company 1 >&2
    "$build/bin/suitefiles" demo "$folder" --company 1 --customers "$size" >&2
  fi
  folders="$folders $folder"
done

# shellcheck disable=SC2086
"$build/bin/bench_engine" --pairs "$pairs" $folders
# shellcheck disable=SC2086
"$build/bin/bench_engine" --waits --pairs 11 $folders
for folder in $folders; do
  printf '\nMemory, %s customers: ' "$(basename "$folder")"
  "$build/bin/bench_memory" "$folder"
  printf '\nMemory of query results, %s customers: ' "$(basename "$folder")"
  "$build/bin/bench_memory" "$folder" --queries
  [ -x "$build/bin/bench_model" ] && "$build/bin/bench_model" --pairs 5 --only "open the list" "$folder"
  if [ -x "$build/bin/bench_desktop" ]; then
    [ -e "$folder/orvTEMP/orvTemp1.zdb" ] || "$build/bin/suitefiles" temp "$folder" --user 1 >&2
    QT_QPA_PLATFORM=offscreen "$build/bin/bench_desktop" "$folder" 1
  fi
done
[ -x "$build/bin/bench_map" ] && QT_QPA_PLATFORM=offscreen "$build/bin/bench_map"
for folder in $folders; do
  copy=$records/records-$(basename "$folder")
  rm -rf "$copy"
  cp -r "$folder" "$copy"
  "$build/bin/bench_records" --pairs "$pairs" "$copy"
  printf '\nMemory of saves, %s customers: ' "$(basename "$folder")"
  "$build/bin/bench_saves" "$copy"
  "$build/bin/bench_desks" "$copy"
  "$build/bin/bench_parents" "$copy" "$pairs" "$(basename "$folder")"
  rm -rf "$copy"
done
# Reports: labels and the queried copy over 100,000 customers, first pages and files over each company.
labels=$records/labels
rm -rf "$labels"
mkdir -p "$labels"
"$build/bin/suitefiles" create "$labels" --company 1 >&2
"$build/bin/suitefiles" demo "$labels" --company 1 --customers 100000 >&2
"$build/bin/bench_reports" "$labels" 3
rm -rf "$labels"
for folder in $folders; do
  "$build/bin/bench_report_rows" "$folder" 3
  [ -x "$build/bin/bench_report_files" ] || continue
  written=$(mktemp -d)
  QT_QPA_PLATFORM=offscreen "$build/bin/bench_report_files" "$folder" "$written" 3 2>/dev/null
  rm -rf "$written"
done
exit 0
