#!/bin/sh
# all-listed.sh FOLDER LIST: every scenario in FOLDER stands in LIST, and the reverse.
set -eu
cd "$1"
found=$(find . -name '*.scn' | sed -e 's|^\./||' -e 's|\.scn$||' | sort)
listed=$(sort "$2")
[ "$found" = "$listed" ] && exit 0
echo "list.cmake and the scenario files differ:"
printf '%s\n' "$found" >"$2.found"
printf '%s\n' "$listed" | diff - "$2.found" || exit 1
