# Sourced by run-scenario.sh: puts a scenario's companies on the server that server.sh has started in $server. Each scenario has a database
# of its own, made like that of the first one with the same data lines.
# shellcheck shell=sh disable=SC2154

export PGUSER=office

administer() { psql -h "$socket" -d postgres -X -q -A -t -v ON_ERROR_STOP=1 -c "$1" >"$here/psql.log" 2>&1 || stop "$1: $(cat "$here/psql.log")"; }

# The companies' numbers, by their folders.
companies() { ls -d "$data"/data/orv[0-9]* 2>/dev/null | sed 's|.*/orv||'; }

make_template() {
  [ -f "$server/templates/$template" ] && return 0
  administer "DROP DATABASE IF EXISTS $template"
  administer "CREATE DATABASE $template TEMPLATE template0 STRATEGY file_copy"
  for number in $(companies); do
    "$suitefiles" copy "$data" "$place/$template/orv$number/" --company "$number" >"$here/copy.log" 2>&1 || stop "$(cat "$here/copy.log")"
  done
  : >"$server/templates/$template"
}

put_on_server() {
  [ -f "$server/socket" ] || stop "no server was started in $server"
  for header in move cut ini paths drive; do
    [ -z "$(header $header)" ] || stop "what the line \"$header\" says is about files; there is no server's form of it yet"
  done
  socket=$(cat "$server/socket")
  place=postgresql://$(printf '%s' "$socket" | sed 's|/|%2F|g')
  database=s$$
  template=t$(md5sum <"$here/data.lines" | cut -c1-12)
  exec 9>"$server/templates/lock"
  flock 9
  make_template
  administer "CREATE DATABASE $database TEMPLATE $template STRATEGY file_copy"
  exec 9>&-
  # The companies' rows are in one file for all of them, as in the library's folder.
  dat=
  for number in $(companies); do
    [ -n "$dat" ] || dat=$place/$database/orv$number/dat.zdb
    printf '[Databases]\ndat.zdb Path=%s\nDefault Path=%s\n' "$dat" "$place/$database/orv$number/" >"$data/orv$number.ini"
    rm -rf "$data/data/orv$number"
  done
  rm -f "$data"/dat.zdb*
}

# data/orv1/GL.zdb
gone_from_server() {
  schema=$(printf '%s' "$1" | sed -n 's|^data/\(orv[0-9]*\)/\([A-Za-z]*\)\.zdb$|\1_\2|p' | tr '[:upper:]' '[:lower:]')
  [ -n "$schema" ] || return 1
  psql -h "$socket" -d "$database" -X -q -A -t -v ON_ERROR_STOP=1 -c "DROP SCHEMA $schema CASCADE" >"$here/psql.log" 2>&1
}

leave_server() { administer "DROP DATABASE $database WITH (FORCE)"; }
