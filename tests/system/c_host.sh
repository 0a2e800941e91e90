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
export HOME="$here/home" XDG_STATE_HOME="$here/home/state" XDG_RUNTIME_DIR="$here/home"

# A display that is not there, that can't be opened, or whose name the toolkit does not know: a code with its reason.
no_display() {
  said=$(env -u QT_QPA_PLATFORM -u DISPLAY -u WAYLAND_DISPLAY "$@" "$host" "$here/suite" 2>/dev/null) || { echo "with $*: status $?, $said"; exit 1; }
}
names() { case $said in *"$1"*) ;; *) echo "\"$said\" does not tell of $1"; exit 1 ;; esac }
no_display A=B
no_display DISPLAY=:9797
names ":9797"
no_display WAYLAND_DISPLAY=nowhere
no_display QT_QPA_PLATFORM=
no_display QT_QPA_PLATFORM=nonsense
names nonsense
no_display QT_QPA_PLATFORM=xcb DISPLAY=
no_display QT_QPA_PLATFORM=wayland WAYLAND_DISPLAY=nowhere
no_display "QT_QPA_PLATFORM=linuxfb:fb=/dev/there-is-none"
# The sample host says the same and ends with its own status.
status=0
env -u QT_QPA_PLATFORM -u WAYLAND_DISPLAY DISPLAY=:9797 "$programs/custsearch" --data "$here/suite" --local "$here/suite" 2>"$here/said" || status=$?
[ "$status" = 1 ] && grep -q ':9797' "$here/said" || { echo "custsearch without a display: status $status"; cat "$here/said"; exit 1; }

QT_QPA_PLATFORM=offscreen "$host" "$here/suite" "$here/errors.log" "$here/settings"
# The missing company of the test stands in the log that the host named, under the host's title.
grep -q 'company=99.*application=A host in C.*module=modCustSch.OpenFiles.*error=3044' "$here/errors.log"
for user in 31 32; do
  [ -s "$here/settings/windows-$user.ini" ] || { echo "nothing was kept for user $user"; ls -R "$here/settings"; exit 1; }
done
