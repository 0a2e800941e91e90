#!/bin/sh
# Installs what is missing, builds and runs the whole test suite. Ends non-zero when anything fails.
#
#   ./test.sh           everything
#   ./test.sh quick     without sanitizers, fuzzers, bench and kills
set -u
cd "$(dirname "$0")" || exit 1
mkdir -p build/logs
LOGS=$PWD/build/logs
. scripts/prepare.sh

mode=${1:-all}
fuzz_seconds=${FUZZ_SECONDS:-60}
# What runs under address and undefined-behaviour sanitizers too: every unit program that needs no window.
SANITIZED="platform_values_test platform_controls_test engine_text_test engine_sql_test engine_sql_corpus_test
engine_store_test engine_cursor_test suite_test session_test maintenance_test robot_test custsearch_test"
failed=""
passed_steps=0
failed_steps=0

# step NAME COMMAND...: runs it, says how it went and how long it took.
step() {
  name=$1
  shift
  begun=$(date +%s)
  if "$@"; then result=ok; passed_steps=$((passed_steps + 1)); else result=FAILED; failed="$failed
  $name"; failed_steps=$((failed_steps + 1)); fi
  say "== $name: $result ($(($(date +%s) - begun)) s)"
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
  for fuzzer in build/fuzz/bin/fuzz_*; do
    [ -x "$fuzzer" ] || continue
    which=$(basename "$fuzzer")
    corpus=build/fuzz/corpus/$which
    mkdir -p "$corpus"
    seeds=tests/fuzz/corpus/$which
    [ -d "$seeds" ] || seeds=""
    # shellcheck disable=SC2086
    "$fuzzer" -max_total_time="$fuzz_seconds" -timeout=10 -print_final_stats=0 -verbosity=0 "$corpus" $seeds >"$LOGS/$which.log" 2>&1 || {
      tail -n 40 "$LOGS/$which.log"
      return 1
    }
    say "   $which: nothing found in $fuzz_seconds s"
  done
}

# shellcheck disable=SC2086
install_missing $BUILD_PACKAGES $RUN_PACKAGES $TEST_PACKAGES || exit 1

step "source rules" scripts/check-sources.sh
step "build" build default
step "tests" run_ctest default
if [ "$mode" != quick ]; then
  # shellcheck disable=SC2086
  step "build under sanitizers" build asan-ubsan $SANITIZED
  step "units and engine under sanitizers" run_ctest asan-ubsan -R "^($(printf '%s' "$SANITIZED" | tr ' \n' '||'))$"
  step "build of the fuzzers" build fuzz
  step "fuzzers" run_fuzzers
  step "core alone" build core-only orcussch_logic suitefiles
  [ -x scripts/bench-short.sh ] && step "bench, short form" scripts/bench-short.sh
fi

say ""
if [ -n "$failed" ]; then say "Failed:$failed"; fi
say "$passed_steps passed, $failed_steps failed"
[ -z "$failed" ]
