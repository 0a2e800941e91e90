#!/bin/sh
# Runs one scenario in a folder of its own, prepared as the comment lines at its top say (docs/scenarios.md).
#
#   run-scenario.sh PROGRAMS SCENARIO WORK [--on-server FOLDER] [custsearch options]
#
# --on-server puts its companies on the server that server.sh has started in that folder.
# PROGRAMS is the folder of custsearch and suitefiles. In WORK fresh companies are kept for the next scenario that wants the
# same. The scenario's own folder stays after a failure.
set -u
programs=$1
scenario=$2
work=$3
shift 3
server=
if [ "${1:-}" = --on-server ]; then
  server=$2
  shift 2
fi

suitefiles=$programs/suitefiles
stamp=$(stat -c '%s-%Y' "$suitefiles") || exit 1
made=$work/made/$stamp
# A short path: settings files cut what is longer than 126 characters.
here=$(mktemp -d "${TMPDIR:-/tmp}/orv.XXXXXX") || exit 1
mkdir -p "$made" "$here/home"

stop() {
  printf '%s: %s\n' "$scenario" "$1" >&2
  exit 1
}

# The comment lines at the top, one instruction each: "# NAME: WORDS".
header() { sed -n -e '/^[[:space:]]*\(#\|$\)/!q' -e "s/^[[:space:]]*#[[:space:]]*$1:[[:space:]]*//p" "$scenario"; }

# keep NAME COMMAND...: a folder that COMMAND (called with its path behind) makes once; others copy it.
keep() {
  name=$1
  shift
  [ -d "$made/$name" ] && return 0
  unfinished=$made/$name.$$
  mkdir -p "$unfinished"
  "$@" "$unfinished" >"$here/made.log" 2>&1 || {
    cat "$here/made.log" >&2
    stop "the data can't be made: $*"
  }
  mv -T "$unfinished" "$made/$name" 2>/dev/null || rm -rf "$unfinished"
}
make_company() { "$suitefiles" create "$2" --company "$1" --year 2025; }
make_demo() { "$suitefiles" demo "$4" --company "$1" --customers "$2" --seed "$3"; }
make_temp() { "$suitefiles" temp "$1" --user 0; }

# "create [N...]", "demo COUNT [seed S] [company N]", "none".
prepare_data() {
  kind=$1
  shift
  case $kind in
    none) ;;
    create)
      [ $# -eq 0 ] && set -- 1
      keep "create-$(echo "$*" | tr ' ' '-')" make_companies "$*"
      cp -r "$made/create-$(echo "$*" | tr ' ' '-')/." "$data"
      ;;
    demo)
      count=$1
      seed=1
      company=1
      shift
      while [ $# -gt 1 ]; do
        case $1 in seed) seed=$2 ;; company) company=$2 ;; *) stop "what is \"$1\" in a data line?" ;; esac
        shift 2
      done
      keep "demo-$company-$count-$seed" make_demo "$company" "$count" "$seed"
      cp -r "$made/demo-$company-$count-$seed/." "$data"
      ;;
    *) stop "what is \"$kind\" in a data line?" ;;
  esac
}
make_companies() {
  for number in $1; do make_company "$number" "$2" || return 1; done
}

if [ -n "$server" ]; then
  # shellcheck source=tests/scenarios/on-server.sh
  . "$(dirname "$0")/on-server.sh"
  find_server
elif [ "$(header "on")" = server ]; then
  stop "it is about companies on a server: --on-server"
fi

# Folders: with drive letters the library lies in C:\suite.
paths=$(header paths)
data=$here/suite
local=$data
[ "$paths" = windows ] && data=$here/c/suite && local=$here/c
mkdir -p "$data"
# "NAME": a local root of that name, beside the data.
beside=$(header local)
[ -n "$beside" ] && local=$here/$beside

fresh=$(header data)
[ -n "$fresh" ] || fresh=create
printf '%s\n' "$fresh" >"$here/data.lines"
while read -r line; do
  # shellcheck disable=SC2086
  prepare_data $line
done <"$here/data.lines"

if [ -n "$server" ]; then put_on_server; fi

users=$(header user)
[ -n "$users" ] || users=1
if [ "$users" != none ]; then
  keep temp make_temp
  mkdir -p "$local/orvTEMP"
  for user in $users; do cp "$made/temp/orvTEMP/orvTemp0.zdb" "$local/orvTEMP/orvTemp$user.zdb"; done
fi

# in_folder KIND LINE: the line of settings, or of another text, with its words in braces replaced.
in_folder() { printf '%s' "$2" | if [ -n "$server" ]; then "${1}_on_server" | server_words; else cat; fi | sed -e "s|{DIR}|$data|g" -e "s|{LOCAL}|$local|g"; }

# "KEY=VALUE" for company 1, "N KEY=VALUE" for another.
header ini >"$here/ini.lines"
while IFS= read -r line; do
  company=1
  case $line in [0-9]*' '* | -[0-9]*' '*) company=${line%% *} && line=${line#* } ;; esac
  ini=$data/orv$company.ini
  [ -f "$ini" ] || printf '[Databases]\n' >"$ini"
  printf '%s\n' "$(in_folder settings "$line")" >>"$ini"
done <"$here/ini.lines"

# "NAME TEXT" with printf's escapes: a file of any content.
header text >"$here/text.lines"
while IFS= read -r line; do
  name=${line%% *}
  mkdir -p "$(dirname "$data/$name")"
  kind=text
  case $name in *.ini) kind=settings ;; esac
  # shellcheck disable=SC2059
  printf "$(in_folder $kind "${line#* }" | sed 's/%/%%/g')" >"$data/$name"
done <"$here/text.lines"

if [ -n "$server" ]; then settle_settings; fi

header file >"$here/file.lines"
while read -r name; do
  mkdir -p "$(dirname "$data/$name")" && : >"$data/$name"
done <"$here/file.lines"

header folder >"$here/folder.lines"
while read -r name; do mkdir -p "$data/$name"; done <"$here/folder.lines"

# On a server they were put where they were to go.
if [ -n "$server" ]; then : >"$here/move.lines"; else header move >"$here/move.lines"; fi
while read -r from to; do
  mkdir -p "$(dirname "$data/$to")"
  mv "$data/$from" "$data/$to" || stop "$from can't be moved"
done <"$here/move.lines"

header gone >"$here/gone.lines"
while read -r name; do
  if [ -n "$server" ] && gone_from_server "$name"; then continue; fi
  [ -e "$data/$name" ] || stop "$name was to go and is not there"
  rm -rf "${data:?}/$name"
done <"$here/gone.lines"

# "NAME BYTES": only the first bytes of a file are left.
header cut >"$here/cut.lines"
while read -r name bytes; do
  truncate -s "$bytes" "$data/$name" || stop "$name can't be cut"
done <"$here/cut.lines"

if [ -n "$server" ]; then done_to_server; fi

set -- --scenario "$scenario" --data "$data" "$@"
[ -n "$beside" ] && set -- "$@" --local "$local"
[ -n "$server" ] && set -- "$@" --companies "$host/$database/"
[ "$paths" = windows ] && set -- "$@" --paths windows --drive "C=$here/c"
# "D": a further drive, the folder ../../d seen from the library's.
for letter in $(header drive); do
  drive=$here/$(echo "$letter" | tr '[:upper:]' '[:lower:]')
  mkdir -p "$drive"
  set -- "$@" --drive "$letter=$drive"
done
# shellcheck disable=SC2046
set -- "$@" $(header options)

wanted=$(header exit)
[ -n "$wanted" ] || wanted=0
HOME=$here/home XDG_STATE_HOME=$here/home/state XDG_CONFIG_HOME=$here/home/config XDG_RUNTIME_DIR=$here/home \
  QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$programs/custsearch" "$@" </dev/null >"$here/told.log"
status=$?
cat "$here/told.log"
if [ "$status" -ne "$wanted" ]; then
  stop "exit status $status, not $wanted; its folder is $here"
fi

# "every": each line with an expectation must be told as a failure, and no other line.
if [ "$(header fails)" = every ]; then
  sed -n "s|^$scenario:\([0-9]*\): expected .*, was .*|\1|p" "$here/told.log" | sort -n >"$here/told.lines"
  grep -nE '^[[:space:]]*(at (box|yield [0-9]+) )?expect ' "$scenario" | cut -d: -f1 >"$here/expected.lines"
  diff "$here/expected.lines" "$here/told.lines" >&2 || stop "expectations that held (<), or failures of other lines (>); its folder is $here"
fi
if [ -n "$server" ]; then leave_server; fi
rm -rf "$here"
