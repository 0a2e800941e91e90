#!/bin/sh
# man_pages.sh PROGRAMS PAGES: every option and command that the help of a program tells of stands in its man page, and the
# reverse.
set -u
programs=$1
pages=$2
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
failures=0

# The options in a text, one a line.
options() { grep -oE -e '--[a-z][a-z-]*' | sort -u; }

compare() {
  sed -e 's/\\-/-/g' -e 's/\\f[A-Z]//g' "$pages/$1.1" >"$work/page.txt"
  options <"$work/help.txt" >"$work/told"
  options <"$work/page.txt" >"$work/written"
  diff "$work/told" "$work/written" >"$work/differs" || {
    printf '%s: only in the help (<) or only in the man page (>):\n' "$1" >&2
    cat "$work/differs" >&2
    failures=1
  }
}

"$programs/custsearch" --help >"$work/help.txt" || failures=1
compare custsearch

# A program of commands: each has a help of its own and a paragraph.
program() {
  "$programs/$1" --help >"$work/help.txt" || failures=1
  commands=$(sed -n "s/^  $1 \\([a-z]*\\) .*/\\1/p" "$work/help.txt")
  [ -n "$commands" ] || failures=1
  for command in $commands; do
    [ "$command" = help ] && continue
    "$programs/$1" help "$command" >"$work/one.txt" || failures=1
    grep -q "^$1 $command " "$work/one.txt" || {
      printf 'the help of %s does not begin with it\n' "$command" >&2
      failures=1
    }
    grep -qx "\.B $command" "$pages/$1.1" || {
      printf '%s.1 has no paragraph on %s\n' "$1" "$command" >&2
      failures=1
    }
    cat "$work/one.txt" >>"$work/help.txt"
  done
  compare "$1"
}

program suitefiles
[ ! -x "$programs/streets" ] || program streets
exit $failures
