#!/bin/sh
# program.sh PROGRAMS WORK: the sample host from the outside: what it prints where, and its exit statuses.
set -u
programs=$1
work=$2/program.$$
mkdir -p "$work/home"
cd "$work" || exit 1
export HOME="$work/home" XDG_STATE_HOME="$work/home/state"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
failures=0

# demand STATUS OUT ERR WORD...: custsearch with these words; OUT and ERR are patterns of the shell.
demand() {
  status=$1 out=$2 err=$3
  shift 3
  "$programs/custsearch" "$@" >out.txt 2>err.txt </dev/null
  was=$?
  # shellcheck disable=SC2254
  case "$(cat out.txt)" in $out) ;; *) complain "custsearch $* printed: $(cat out.txt)" ;; esac
  # shellcheck disable=SC2254
  case "$(cat err.txt)" in $err) ;; *) complain "custsearch $* told: $(cat err.txt)" ;; esac
  [ $was = "$status" ] || complain "custsearch $*: exit status $was, not $status"
}
complain() {
  printf '%s\n' "$1" >&2
  failures=$((failures + 1))
}

"$programs/suitefiles" create data --company 1 >/dev/null || exit 1

demand 0 'Usage: custsearch*' '' --help
demand 0 'custsearch [0-9]*.[0-9]*' '' --version
demand 2 '' 'custsearch: unknown option --wrong*custsearch --help*' --wrong
demand 2 '' 'custsearch: there is no folder nowhere*' --data nowhere
demand 2 '' 'custsearch: the scenario none.scn can*t be read' --scenario none.scn
demand 2 '' 'custsearch: the scenario home can*t be read' --scenario home

printf 'expect screen none\n' >good.scn
demand 0 '' '' --scenario good.scn --data data
printf 'expect screen frmCustMain\nexpect host Customer 1\n' >unmet.scn
demand 1 'unmet.scn:1: expected screen frmCustMain, was none
unmet.scn:2: expected host Customer "1", was 0' '' --scenario unmet.scn --data data
printf '# first\nclick\nexpect host\n' >wrong.scn
demand 2 '' 'wrong.scn:2: click takes 1 word, not 0
wrong.scn:3: expect host takes 2 words, not 0' --scenario wrong.scn --data data

# A scenario on standard input; what it fills in braces are the folders.
"$programs/custsearch" --scenario - --data data >out.txt <<'END'
host CustomerCity "{DIR} {LOCAL}"
print host CustomerCity
expect host CustomerCity x
END
was=$?
[ $was = 1 ] || complain "standard input: exit status $was"
[ "$(cat out.txt)" = "$work/data $work/data
-:3: expected host CustomerCity \"x\", was \"$work/data $work/data\"" ] || complain "standard input printed: $(cat out.txt)"

# Garbage instead of a scenario; nothing runs.
head -c 3000 "$programs/suitefiles" >garbage.scn
demand 2 '' 'garbage.scn:1: *' --scenario garbage.scn --data data
printf 'host UserID 1\nhost CompanyID 1\nhost ShowUser\n' >half.scn
demand 1 'half.scn:3: expected no screen at the end, was frmCustMain*' '' --scenario half.scn --data data --local nowhere

# A local folder that is missing is a missing temporary folder.
printf 'host UserID 1\nhost CompanyID 1\nexpect log modCustSch.OpenFiles 3044\nexpect log like CustSearch* 91\n' >local.scn
demand 0 '' '' --scenario local.scn --data data --local nowhere/at/all
[ -e nowhere ] && complain "a scenario made a local folder"

# A scenario makes no file.
[ -e data/orvTEMP ] && complain "a scenario made a temporary folder"
[ -e home/state ] && complain "a scenario wrote to the user's state folder"

# One scenario runs other programs of the suite.
printf 'run suitefiles temp {DIR} --user 7\nrun custsearch --scenario good.scn --data {DIR}\nrun suitefiles nonsense\n' >run.scn
demand 1 '*run.scn:3: expected run suitefiles nonsense, was exit status 2' '*' --scenario run.scn --data data
[ -f data/orvTEMP/orvTemp7.zdb ] || complain "run made no temporary file"

# Windows need a display; without one the program says so and makes nothing.
demand 1 '' 'custsearch: *' --data data
[ -e home/state/orcussch/orvTEMP ] && complain "a program without a display made a temporary file"

# With one (in memory) it makes the user's temporary file and waits for the user.
if [ "${3:-}" = windows ]; then
  QT_QPA_PLATFORM=offscreen timeout 10 "$programs/custsearch" --data data --user 5 >out.txt 2>err.txt &
  waiting=$!
  for _ in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16; do
    [ -f home/state/orcussch/orvTEMP/orvTemp5.zdb ] && break
    sleep 0.5
  done
  [ -f home/state/orcussch/orvTEMP/orvTemp5.zdb ] || complain "no temporary file was made: $(cat err.txt)"
  sleep 1
  kill -0 $waiting 2>/dev/null || complain "the program did not wait for the user: $(cat out.txt err.txt)"
  kill $waiting 2>/dev/null
  wait $waiting 2>/dev/null
fi

if [ $failures -eq 0 ]; then rm -rf "$work"; fi
exit $failures
