#!/bin/sh
# The long form of the kill tests: a user of the main screen adds, changes and deletes every kind of record while the program is
# killed again and again, until every kind of act was acknowledged so often (1000 without an argument); the same for some kills
# in the real windows, for reports that go to files, and for a writer of the engine. Fails when an acknowledged act is lost or a half
# one is there.
#
#   scripts/kills.sh [ACTS [SEED]]      ORCUSSCH_BIN: a folder of built programs to take instead of building
set -u
cd "$(dirname "$0")/.." || exit 1
acts=${1:-1000}
seed=${2:-1}
programs=${ORCUSSCH_BIN:-}
if [ -z "$programs" ]; then
  mkdir -p build/logs
  LOGS=$PWD/build/logs
  . scripts/prepare.sh
  build default screen_kill_test kill_test writer custsearch suitefiles || exit 1
  programs=$PWD/build/default/bin
fi
"$programs/screen_kill_test" "$programs" --acts "$acts" --kills "$acts" --seed "$seed" || exit 1
QT_QPA_PLATFORM=offscreen "$programs/screen_kill_test" "$programs" --front desktop --acts 0 --kills 60 --seed "$seed" 2>/dev/null || exit 1
tests/system/export_kills.sh "$programs" 60 "$seed" || exit 1
"$programs/kill_test" "$programs/writer" --kills 200 --seed "$seed"
