#!/bin/sh
# streets_tool.sh PROGRAMS COUNTY REPEAT: the tool as an office uses it, with the county COUNTY (a .shp). REPEAT makes large counties.
set -u
programs=$1
county=$2
repeat=$3
here=$(mktemp -d) || exit 1
trap 'rm -rf "$here"' EXIT
streets=$programs/streets

stop() {
  printf '%s\n' "$1" >&2
  cat "$here/log" >&2
  exit 1
}
run() { "$streets" "$@" >"$here/log" 2>&1; }
says() { grep -q -- "$1" "$here/log" || stop "\"$1\" is not told"; }

# A county, as it is and as it comes in its archive; again; to look alone.
run import "$county" --into "$here/s.zds" --dry-run || stop "a dry run fails"
says '677 records, 0 not taken; 593 pieces of street, 878 ranges'
[ -e "$here/s.zds" ] && stop "a dry run writes"
run import "$county" --into "$here/s.zds" || stop "the county can't be imported"
(cd "$(dirname "$county")" && cmake -E tar cf "$here/tl_2021_30059_addrfeat.zip" --format=zip tl_2021_30059_addrfeat.shp tl_2021_30059_addrfeat.shx tl_2021_30059_addrfeat.dbf)
run import "$here/tl_2021_30059_addrfeat.zip" --into "$here/s.zds" || stop "the archive can't be imported"
run info "$here/s.zds" || stop "no information"
[ "$(grep -c '^census:30059' "$here/log")" = 1 ] || stop "the county is there twice"
says '^227 street names$'
says '^593 pieces of street$'
says '^878 ranges of house numbers$'
run check "$here/s.zds" || stop "the file is not sound"

# The names in an archive write no lines of their own.
mkdir "$here/odd"
for ending in shp shx dbf; do cp "${county%shp}$ending" "$here/odd/$(printf 'county\nall is sound').$ending"; done
(cd "$here/odd" && cmake -E tar cf "$here/odd.zip" --format=zip ./*)
run import "$here/odd.zip" --into "$here/odd.zds" || stop "a name of two lines can't be imported"
grep -q '^all is sound' "$here/log" && stop "a name in an archive is told on a line of its own"

# What can't be read is told and passed over, the rest comes.
mkdir "$here/in"
head -c 5000 "$here/tl_2021_30059_addrfeat.zip" >"$here/in/a_cut.zip"
cp "$(dirname "$county")"/tl_2021_30059_addrfeat.??? "$here/in"
run import "$here/in" --into "$here/t.zds" && stop "a damaged archive is passed over without a word"
says 'a_cut.zip is no ZIP archive'
says '677 records, 0 not taken'
run import "$here/in/a_cut.zip" --into "$here/none.zds" && stop "nothing imported is no failure"
[ -e "$here/none.zds" ] && stop "an empty file is left"
run import "$county" --into "$county" && stop "a foreign file is filled"
says 'is not a streets file'
run import "$here/in" && stop "no target is no misuse"
[ $? = 2 ] || stop "misuse has another exit status"
run import "$here/none" --into "$here/s.zds" && stop "a missing file is no failure"
run find 2>/dev/null; [ $? = 2 ] || stop "no address is no misuse"

# An extract beside the county: its notice is told, its ZIP found; again; a damaged one leaves what was there.
cp "$here/s.zds" "$here/u.zds"
python3 "$(dirname "$0")/make_extract.py" "$here/town.osm.pbf" || stop "no extract"
run import "$here/town.osm.pbf" --into "$here/u.zds" || stop "an extract can't be imported"
says 'node 2: it has no street (addr:street)'
says '3 records, 1 not taken or not whole; 1 pieces of street, 1 houses'
run import "$here/town.osm.pbf" "$county" --into "$here/u.zds" || stop "an extract and a county can't be imported together"
head -c 200 "$here/town.osm.pbf" >"$here/in/town.osm.pbf"
run import "$here/in/town.osm.pbf" --into "$here/u.zds" && stop "an extract that is cut short is no failure"
says 'town.osm.pbf is cut short'
run import "$here/town.osm.pbf" --into "$here/none.zds" --map "$here/missing.zds" && stop "a missing base map is no failure"
[ -e "$here/none.zds" ] && stop "an empty file is left"
run info "$here/u.zds"
[ "$(grep -c '^osm:town.*(C) OpenStreetMap contributors' "$here/log")" = 1 ] || stop "the extract and its notice are not there once"
says '^594 pieces of street$'
says '^1 address points$'
run find "12 Elm St,,,04401" --streets "$here/u.zds" || stop "a house of the extract is not found"
says 'match.*-6877000 4480000 12 Elm Street'
run check "$here/u.zds" || stop "the file with an extract is not sound"

# Killed half-way at any moment, the file is what it was; the next run brings all.
"$repeat" "$county" "$here/tl_2021_30001_addrfeat.shp" 12 >"$here/log" || stop "no large county"
for wait in 0.02 0.05 0.1 0.15 0.2 0.3 0.4; do
  "$streets" import "$here/tl_2021_30001_addrfeat.shp" --into "$here/s.zds" >"$here/log" 2>&1 &
  victim=$!
  sleep $wait
  kill -9 $victim 2>/dev/null
  wait $victim 2>/dev/null
  run check "$here/s.zds" || stop "killed after $wait s, the file is not sound"
  run info "$here/s.zds"
  grep -q '^878 ranges' "$here/log" || grep -q '^11414 ranges' "$here/log" || stop "killed after $wait s, half a county is there"
done
run import "$here/tl_2021_30001_addrfeat.shp" --into "$here/s.zds" || stop "the large county can't be imported"
run info "$here/s.zds"
says '^11414 ranges of house numbers$'
run check "$here/s.zds" || stop "the file is not sound"

# A disk that is full: the limit on a file's size stands for it.
cp "$here/s.zds" "$here/before.zds"
(ulimit -f 300; trap '' XFSZ; "$streets" import "$county" --into "$here/small.zds" >"$here/log" 2>&1) && stop "a full disk is no failure"
run check "$here/before.zds" || stop "the copy is not sound"
exit 0
