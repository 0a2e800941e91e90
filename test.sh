#!/bin/sh
# Installs what is missing, builds and runs the whole test suite. Ends non-zero when anything fails. Tells of every step, and
# of all at the end, the processor time of this script with its children and the time by the clock.
#
#   ./test.sh           everything
#   ./test.sh quick     without sanitizers, fuzzers, bench and kills
set -u
cd "$(dirname "$0")" || exit 1
mkdir -p build/logs
LOGS=$PWD/build/logs
. scripts/prepare.sh

mode=${1:-all}
fuzz_seconds=${FUZZ_SECONDS:-30}
# What runs under address and undefined-behaviour sanitizers too: every unit program that needs no window.
SANITIZED="platform_values_test platform_controls_test platform_keys_test engine_text_test engine_sql_test engine_sql_corpus_test
engine_store_test engine_cursor_test engine_memory_store_test engine_server_test suite_test session_test records_test maintenance_test setup_test queries_test robot_test custsearch_test library_test
streets_address_test streets_geocoder_test streets_map_test streets_files_test streets_import_test streets_osm_test hostile_yields printing_rules_test printing_data_test"
FUZZERS="fuzz_like fuzz_convert fuzz_sql fuzz_report fuzz_selection fuzz_county fuzz_archive fuzz_address fuzz_osm"
failed=""
passed_steps=0
failed_steps=0

# processor_seconds: what this script and its children have taken so far, into $processor. (A subshell would tell its own.)
processor_seconds() {
  times >"$LOGS/times"
  processor=$(tr 'ms' '  ' <"$LOGS/times" | awk '{ sum += 60 * ($1 + $3) + $2 + $4 } END { printf "%d", sum }')
}

minutes() { printf '%d:%02d' $(($1 / 60)) $(($1 % 60)); }

# step NAME COMMAND...: runs it, says how it went and what it took.
step() {
  name=$1
  shift
  begun=$(date +%s)
  processor_seconds
  before=$processor
  if "$@"; then result=ok; passed_steps=$((passed_steps + 1)); else result=FAILED; failed="$failed
  $name"; failed_steps=$((failed_steps + 1)); fi
  processor_seconds
  say "== $name: $result (processor $((processor - before)) s, clock $(($(date +%s) - begun)) s)"
}

# run_ctest PRESET [arguments]: the suite of one preset; a preset without tests is a failure.
run_ctest() {
  preset=$1
  shift
  ctest --preset "$preset" "$@" >"$LOGS/ctest-$preset.log" 2>&1
  status=$?
  grep -E 'tests passed|tests failed|\(Failed\)|\(Timeout\)|\*\*\*' "$LOGS/ctest-$preset.log" | tail -n 60
  [ $status -eq 0 ] || tail -n 60 "$LOGS/ctest-$preset.log"
  return $status
}

run_fuzzers() {
  # What a fuzzer writes for the readers of files is best not written to a disk.
  scratch=${TMPDIR:-/tmp}
  [ -w /dev/shm ] && scratch=/dev/shm
  for which in $FUZZERS; do
    corpus=build/instrumented/corpus/$which
    mkdir -p "$corpus"
    seeds=tests/fuzz/corpus/$which
    [ -d "$seeds" ] || seeds=""
    # shellcheck disable=SC2086
    TMPDIR="$scratch" "build/instrumented/bin/$which" -max_total_time="$fuzz_seconds" -timeout=10 -print_final_stats=0 -verbosity=0 "$corpus" $seeds >"$LOGS/$which.log" 2>&1 || {
      tail -n 40 "$LOGS/$which.log"
      return 1
    }
    say "   $which: nothing found in $fuzz_seconds s"
  done
}

# The instrumented tree is built without the windows: nothing in it may have asked for the toolkit.
core_alone() { ! grep -q '^Qt6' build/instrumented/CMakeCache.txt; }

begun_all=$(date +%s)
# shellcheck disable=SC2086
install_missing $BUILD_PACKAGES $RUN_PACKAGES $TEST_PACKAGES || exit 1

step "source rules" scripts/check-sources.sh
step "build" build default
step "tests" run_ctest default
if [ "$mode" != quick ]; then
  # shellcheck disable=SC2086
  step "build under sanitizers, with the fuzzers" build instrumented $SANITIZED $FUZZERS custsearch suitefiles
  step "core alone" core_alone
  step "units and engine under sanitizers" run_ctest instrumented -R "^($(printf '%s' "$SANITIZED" | tr ' \n' '||'))$"
  step "robot scenarios under sanitizers" scripts/sanitize-scenarios.sh "${SANITIZED_SCENARIOS:-all}"
  step "fuzzers" run_fuzzers
  step "bench, short form" scripts/bench-short.sh
fi

say ""
if [ -n "$failed" ]; then say "Failed:$failed"; fi
say "$passed_steps passed, $failed_steps failed"
processor_seconds
say "Processor time $(minutes "$processor"), time by the clock $(minutes $(($(date +%s) - begun_all))) (minutes:seconds)"
[ -z "$failed" ]
