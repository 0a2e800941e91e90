#!/bin/sh
# c_host_names.sh PROGRAMS HOST: a host whose own functions are named as the library's inner ones works with a company.
set -eu
here=$(mktemp -d)
trap 'rm -rf "$here"' EXIT
"$1/suitefiles" create "$here/suite" --company 1 >/dev/null
HOME=$here XDG_STATE_HOME=$here/state XDG_RUNTIME_DIR=$here QT_QPA_PLATFORM=offscreen "$2" "$here/suite"
[ -s "$here/suite/orvTEMP/orvTemp1.zdb" ] || { echo "the temporary file was not made"; exit 1; }
