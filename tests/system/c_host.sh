#!/bin/sh
# c_host.sh PROGRAMS HOST: makes a company with one customer and lets the C host work with it.
set -eu
programs=$1
host=$2
here=$(mktemp -d)
trap 'rm -rf "$here"' EXIT
"$programs/suitefiles" create "$here/suite" --company 1 >/dev/null
"$programs/suitefiles" temp "$here/suite" --user 1 >/dev/null
"$programs/suitefiles" sql "$here/suite/data/orv1/customer.zdb" \
  "INSERT INTO Customers (LastName, City) VALUES ('Smith', 'Köln')" >/dev/null
mkdir "$here/home"
env -u QT_QPA_PLATFORM -u DISPLAY -u WAYLAND_DISPLAY HOME="$here/home" "$host" "$here/suite"
HOME=$here/home XDG_STATE_HOME=$here/home/state XDG_RUNTIME_DIR=$here/home QT_QPA_PLATFORM=offscreen "$host" "$here/suite" "$here/errors.log"
# The missing company of the test stands in the log that the host named, under the host's title.
grep -q 'company=99.*application=A host in C.*module=modCustSch.OpenFiles.*error=3044' "$here/errors.log"
