#!/bin/sh
# scripts/bench-streets.sh [BUILD]: how many addresses a second the map finds, on one core in processor time: those of a real county as they
# should be, and misspelt. Wants streets, bench_streets and orcussch_map built.
set -eu
cd "$(dirname "$0")/.."
build=${1:-build/default}
county=tests/data/streets/meagher/tl_2021_30059_addrfeat.shp
here=$(mktemp -d)
trap 'rm -rf "$here"' EXIT
"$build/bin/streets" import "$county" --into "$here/streets.zds"
python3 tests/system/streets/write_addresses.py "$county" "$here"
"$build/bin/bench_streets" "$here/streets.zds" "$build/share/orcussch/map.zds" "$here/full.txt" "$here/misspelt.txt" | sed "s|$here/||"
