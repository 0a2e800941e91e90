#!/bin/sh
# Rules that a machine can check: what may include what, sizes, toolkit and store headers behind their adapter, no pointers to
# documents outside the project, sources that the build lists.
set -u
cd "$(dirname "$0")/.." || exit 1
bad=0
complain() {
  printf '%s\n' "$*"
  bad=1
}
list() { git ls-files -co --exclude-standard -- "$@"; }

# 1. Arrows. Every include of ours as "FILE FOLDER FILE FOLDER", by whole paths.
code='src/*.h src/*.cpp adapters/*.h adapters/*.cpp apps/*.h apps/*.cpp'
# shellcheck disable=SC2086 # patterns, one a word
arrows=$(list $code | xargs grep -H '^#include "' | sed 's/^\([^:]*\):#include "\([^"]*\)".*/\1 \2/' | awk -v files="$(list $code)" '
  function folder(path) { sub(/\/[^\/]*$/, "", path); return path }
  BEGIN { n = split(files, all, "\n"); for (i = 1; i <= n; i++) known[all[i]] = 1; split("src/ adapters/ apps/ apps/library/", roots, " ") }
  { for (r = 1; r in roots; r++) if ((roots[r] $2) in known) { print $1, folder($1), roots[r] $2, folder(roots[r] $2); break } }')

# What a room may see beside itself: src/platform nothing, src the platform and itself, an adapter src and itself, apps all.
outside=$(printf '%s\n' "$arrows" | awk '
  function room(path, parts) { split(path, parts, "/"); return parts[1] == "src" && parts[2] != "platform" ? "src" : parts[1] "/" parts[2] }
  { from = room($2); to = room($4)
    if (from == to || from ~ /^apps/ || to == "src/platform" || (from ~ /^adapters/ && to == "src")) next
    print $1 " includes " $3 }')
[ -n "$outside" ] && complain "Includes that leave their room:
$outside"

# No folder sees one that sees it, directly or by way of others. Exceptions are "FOLDER FOLDER", one a line; the list only shrinks.
accepted=""
folders=$(printf '%s\n' "$arrows" | awk '$2 != $4 { print $2, $4 }' | sort -u)
[ -n "$accepted" ] && folders=$(printf '%s\n' "$folders" | grep -vxF "$accepted")
circles=$(printf '%s\n' "$folders" | tsort 2>&1 >/dev/null | sed 's/^tsort: -: //;s/^tsort: //')
[ -n "$circles" ] && complain "Folders in circles:
$circles"

# Small files, folders that can be seen at a glance. Generated data may be longer.
large=$(list $code 'tests/*.h' 'tests/*.cpp' 'bench/*.h' 'bench/*.cpp' | grep -v '/unicode_data.h$' | xargs wc -l |
  awk '$2 != "total" && $1 > 400 { print $2 " has " $1 " lines" }')
[ -n "$large" ] && complain "Files above 400 lines:
$large"
full=$(list $code | sed 's|/[^/]*$||' | sort | uniq -c | awk '$1 > 30 { print $2 " holds " $1 " sources" }')
[ -n "$full" ] && complain "Folders above 30 sources:
$full"

# 2. The store's and the toolkit's headers stay under their adapter.
for file in $(list 'src/*' 'adapters/*' 'apps/*'); do
  case "$file" in
    *.h | *.cpp) ;;
    *) continue ;;
  esac
  case "$file" in
    adapters/engine/store/sqlite/* | adapters/streets/file/*.cpp) ;;
    *) grep -q '#include <sqlite3.h>' "$file" && complain "$file includes the store's header" ;;
  esac
  case "$file" in
    adapters/engine/store/sqlite/*.h) grep -q '#include <sqlite3.h>' "$file" && complain "$file: the store's header in a header" ;;
  esac
  case "$file" in
    adapters/engine/store/postgres/*.cpp) ;;
    *) grep -q '#include <libpq-fe.h>' "$file" && complain "$file includes the server's client library" ;;
  esac
  case "$file" in
    adapters/desktop/* | adapters/printing/output/* | adapters/printing/preview/* | adapters/printing/entry/* | adapters/printing/lists/list_export.cpp) ;;
    *) grep -qE '#include <Q[A-Za-z]+>' "$file" && complain "$file includes the toolkit" ;;
  esac
done

# 3. Everything stands for itself: no word of documents outside, no numbers of their chapters, no paths of one machine.
rows=$(git grep -nIE '\b[Pp]ar[t]s? [1-7]\.[0-9]+\b|\b[Tt]he sp[e]c\b|\b[Ss]pecifi[c]ation\b|sp[e]c\.md|sp[e]c-notes' -- . ':!*.svg')
[ -n "$rows" ] && complain "These lines point to a document outside the project:
$rows"
rows=$(git grep -nIE '/(home|root|work|tmp)/[a-z]+/' -- '*.cpp' '*.h' '*.cmake' '*CMakeLists.txt' '*.scn' ':!tests/*' | grep -v 'state/orcussch')
[ -n "$rows" ] && complain "Paths of one machine:
$rows"

# 4. Sources that no CMakeLists.txt or list names are never built.
named=$(list '*CMakeLists.txt' '*.cmake' | xargs cat | tr -s ' ()\t' '\n' | sed 's|.*/||' | sort -u)
for file in $(list 'src/*.cpp' 'adapters/*.cpp' 'apps/*.cpp' 'tests/*.cpp' 'bench/*.cpp'); do
  printf '%s\n' "$named" | grep -qxF "$(basename "$file")" || complain "$file is not built"
done

# 5. Raw new and delete.
rows=$(git grep -nE '(=|return|\() *new [A-Z][A-Za-z_:]+[({;]' -- 'src/*.cpp' 'src/*.h' 'adapters/engine/*' 'adapters/robot/*' 'adapters/suite/*' 'adapters/printing/*' 'apps/*')
[ -n "$rows" ] && complain "Raw new outside of the toolkit:
$rows"

exit $bad
