#!/bin/sh
# c_host_exports.sh LIBRARY HEADER: the library gives out what its header declares, and nothing else.
set -eu
library=$1
header=$2
here=$(mktemp -d)
trap 'rm -rf "$here"' EXIT
sed -n 's/^ORCUSSCH_API .*[ *]\(orcussch_[a-z_]*\)(.*/\1/p' "$header" | sort >"$here/declared"
[ "$(wc -l <"$here/declared")" -ge 9 ] || { echo "the header's functions were not found"; exit 1; }
# "A" is the name of the version itself; small letters but u, v and w are the library's own, which nobody can bind to.
nm -D --defined-only "$library" | sed -n 's/^[0-9a-f]* \([B-Zuvw]\) \([^@]*\).*/\2/p' | sort >"$here/given"
diff "$here/declared" "$here/given" || { echo "the header declares the left names, the library gives out the right ones"; exit 1; }
