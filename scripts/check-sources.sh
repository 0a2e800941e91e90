#!/bin/sh
# Rules that a machine can check: what may include what, toolkit and store headers behind their adapter, no pointers to
# documents outside the project, sources that the build lists.
set -u
cd "$(dirname "$0")/.." || exit 1
bad=0
complain() {
  printf '%s\n' "$*"
  bad=1
}
list() { git ls-files -co --exclude-standard -- "$@"; }

# 1. Arrows: src/ sees the standard library and itself; an adapter sees src/ and itself; apps and tests see all.
#    Accepted exceptions, one a line as FILE:INCLUDE; the list only shrinks.
accepted=""
areas="engine desktop robot suite"
for file in $(list 'src/*.h' 'src/*.cpp'); do
  for include in $(sed -n 's/^#include "\([^"]*\)".*/\1/p' "$file"); do
    area=${include%%/*}
    case " platform session records maintenance entry setup queries reports mapping relationships " in
      *" $area "*) ;;
      *) case "$accepted" in *"$file:$include"*) ;; *) complain "$file includes $include: src/ stands on the standard library alone" ;; esac ;;
    esac
    case "$file:$area" in
      src/platform/*:platform) ;;
      src/platform/*) complain "$file includes $include: the platform knows no screen" ;;
    esac
  done
done
for own in $areas; do
  for file in $(list "adapters/$own/*.h" "adapters/$own/*.cpp"); do
    for include in $(sed -n 's/^#include "\([^"]*\)".*/\1/p' "$file"); do
      area=${include%%/*}
      for other in $areas; do
        [ "$other" != "$own" ] && [ "$area" = "$other" ] && complain "$file includes $include: no adapter includes another"
      done
    done
  done
done

# 2. The store's and the toolkit's headers stay under their adapter.
for file in $(list 'src/*' 'adapters/*' 'apps/*'); do
  case "$file" in
    *.h | *.cpp) ;;
    *) continue ;;
  esac
  case "$file" in
    adapters/engine/store/sqlite/*) ;;
    *) grep -q '#include <sqlite3.h>' "$file" && complain "$file includes the store's header" ;;
  esac
  case "$file" in
    adapters/engine/store/sqlite/*.h) grep -q '#include <sqlite3.h>' "$file" && complain "$file: the store's header in a header" ;;
  esac
  case "$file" in
    adapters/desktop/* | apps/desktop_library/*) ;;
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
rows=$(git grep -nE '(=|return|\() *new [A-Z][A-Za-z_:]+[({;]' -- 'src/*.cpp' 'src/*.h' 'adapters/engine/*' 'adapters/robot/*' 'adapters/suite/*' 'apps/*')
[ -n "$rows" ] && complain "Raw new outside of the toolkit:
$rows"

exit $bad
