#!/bin/sh
# remake.sh [PROGRAMS]: makes tests/golden/reports anew, when reports are meant to change. Nothing runs this by itself. Look at each
# page that differs, as a picture too, before it is kept: pdftoppm -r 80 -png build/report-pages/NAME.pdf NAME
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../../.." && pwd)
programs=${1:-$root/build/default/bin}
work=$root/build/report-pages
rm -rf "$work" && mkdir -p "$work"
"$here/make.sh" "$programs" "$work"
mkdir -p "$root/tests/golden/reports"
cp "$work"/*.txt "$root/tests/golden/reports/"
git -C "$root" diff --stat -- tests/golden/reports
