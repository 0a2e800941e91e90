# Sourced by run-scenario.sh: puts a scenario's companies on the server that server.sh has started in $server. Each scenario has a database
# of its own, made like that of the first one with the same data and move lines.
# shellcheck shell=sh disable=SC2154

export PGUSER=office

administer() { psql -h "$socket" -d "${2:-postgres}" -X -q -A -t -v ON_ERROR_STOP=1 -c "$1" >"$here/psql.log" 2>&1 || stop "$1: $(cat "$here/psql.log")"; }

# The companies' numbers, by their folders.
companies() { ls -d "$data"/data/orv[0-9]* 2>/dev/null | sed 's|.*/orv||'; }

# Where a file of the data folder lies behind the database's name: "orv1/GL.zdb" for data/orv1/GL.zdb, "dat.zdb", "books/GL.zdb".
on_server() { printf '%s' "${1#data/}"; }

# The same after the move lines, of which the last word on a file counts.
moved() {
  lies=$1
  while read -r from to; do
    case $lies in
      "$from") lies=$to ;;
      "$from"/*) lies=$to${lies#"$from"} ;;
    esac
  done <"$here/move.lines"
  printf '%s' "$lies"
}

files_of() { for name in customer artrans GL flatrate; do printf 'data/orv%s/%s.zdb\n' "$1" "$name"; done; }

# The own keys of a company's files in a database: of all, or of those alone that stayed where they were.
own_keys() {
  for file in dat.zdb $(files_of "$1"); do
    lies=$(moved "$file")
    [ "$3" = all ] || [ "$lies" = "$file" ] || continue
    printf '%s Path=%s/%s/%s\n' "${file##*/}" "$host" "$2" "$(on_server "$lies")"
  done
}

make_template() {
  [ -f "$server/templates/$template" ] && return 0
  administer "DROP DATABASE IF EXISTS $template"
  administer "CREATE DATABASE $template TEMPLATE template0 STRATEGY file_copy"
  mkdir -p "$here/to"
  for number in $(companies); do
    { printf '[Databases]\n' && own_keys "$number" "$template" all; } >"$here/to/orv$number.ini"
    "$suitefiles" copy "$data" "$here/to" --company "$number" >"$here/copy.log" 2>&1 || stop "$(cat "$here/copy.log")"
  done
  : >"$server/templates/$template"
}

# Where the server is, and the name of the scenario's database; with a fill line as long as a name can be.
find_server() {
  [ -f "$server/socket" ] || stop "no server was started in $server"
  socket=$(cat "$server/socket")
  host=postgresql://$(printf '%s' "$socket" | sed 's|/|%2F|g')
  database=s$$
  wanted=$(header fill)
  [ -n "$wanted" ] || return 0
  while [ ${#database} -lt 63 ]; do database=${database}x; done
  fill=
  while [ $((${#host} + ${#database} + ${#fill} + 3)) -lt "$wanted" ]; do fill=${fill}L; done
  sed "s|{FILL}|$fill|g" "$scenario" >"$here/filled.scn"
  scenario=$here/filled.scn
}

put_on_server() {
  [ -z "$(header cut)$(header drive)" ] || stop "a file can be cut short, and a drive be there; no server has such"
  header move >"$here/move.lines"
  template=t$(cat "$here/data.lines" "$here/move.lines" | md5sum | cut -c1-12)
  exec 9>"$server/templates/lock"
  flock 9
  make_template
  administer "CREATE DATABASE $database TEMPLATE $template STRATEGY file_copy"
  exec 9>&-
  companies >"$here/companies"
  header stays >"$here/stays.lines"
  while read -r name; do mkdir -p "$(dirname "$here/stays/$name")" && mv "$data/$name" "$here/stays/$name"; done <"$here/stays.lines"
  for number in $(companies); do rm -rf "$data/data/orv$number"; done
  rm -f "$data"/dat.zdb*
  [ ! -d "$here/stays" ] || cp -r "$here/stays/." "$data"
}

# Behind what the scenario says itself, so that its own words win: where the companies lie.
settle_settings() {
  while read -r number; do
    ini=$data/orv$number.ini
    own=
    [ -f "$ini" ] && own=yes
    grep -qi '\[databases\]' "$ini" 2>/dev/null || printf '\n[Databases]\n' >>"$ini"
    printf '\n' >>"$ini"
    if [ -n "$own" ]; then own_keys "$number" "$database" stayed >>"$ini"; else own_keys "$number" "$database" stayed | sed -n 1p >>"$ini"; fi
    printf 'Default Path=%s/%s/orv%s/\n' "$host" "$database" "$number" >>"$ini"
  done <"$here/companies"
}

# The words of a line about the server: all that lies in the data folder lies there.
settings_on_server() { sed -e "s|{DIR}/data/|{SERVER}/|g" -e "s|{DIR}/|{SERVER}/|g"; }
text_on_server() { sed -e "s|{DIR}/data/|{SERVER}/|g" -e 's|{DIR}/\([^ ]*\.zdb\)|{SERVER}/\1|g'; }
server_words() { sed -e "s|{SERVER}|$host/$database|g" -e "s|{HOST}|$host|g" -e "s|{DATABASE}|$database|g"; }

# data/orv1/GL.zdb
gone_from_server() {
  schema=$(on_server "$1" | sed -n 's|^\(orv[0-9]*\)/\([A-Za-z]*\)\.zdb$|\1_\2|p; s|^\([a-z]*\)\.zdb$|\1|p' | tr '[:upper:]' '[:lower:]')
  [ -n "$schema" ] || return 1
  psql -h "$socket" -d "$database" -X -q -A -t -v ON_ERROR_STOP=1 -c "DROP SCHEMA $schema CASCADE" >"$here/psql.log" 2>&1
}

# What another program, or its administrator, has done to the database.
done_to_server() {
  header sql >"$here/sql.lines"
  while IFS= read -r line; do administer "$line" "$database"; done <"$here/sql.lines"
  role=$(header role)
  [ -z "$role" ] || export PGUSER="$role"
}

leave_server() { PGUSER=office && administer "DROP DATABASE $database WITH (FORCE)"; }
