#!/bin/sh
# make.sh PROGRAMS WORK: each report of the catalogue over the fixed company, as WORK/NAME.pdf and WORK/NAME.txt (the words and where
# they stand). The customers' details are those of five customers.
set -eu
programs=$1
work=$2
here=$(dirname "$0")
export QT_QPA_PLATFORM=offscreen
"$here/company.sh" "$programs" "$work/company" >"$work/company.log"
"$programs/suitefiles" sql "$work/company/data/orv1/customer.zdb" "SELECT Name FROM CUReports ORDER BY Sequence" --no-header |
  while read -r report; do
    name=${report%.*}
    which=all
    [ "$name" = ARCusDet ] && which='AcctNum <= 5'
    "$programs/custsearch" report "$report" --data "$work/company" --customers "$which" --date 2026-03-09 --to "$work/$name.pdf" \
      >"$work/said" 2>&1 || { cat "$work/said" >&2; exit 1; }
    "$here/words.sh" "$work/$name.pdf" >"$work/$name.txt"
  done
