#!/bin/sh
# scripts/proof-osm.sh FOLDER: imports the extracts of OpenStreetMap (*.osm.pbf) that lie in FOLDER, asks for their addresses and streets, and
# tells how many are found and where. The extracts are (C) OpenStreetMap contributors, under the ODbL: they are no part of this project.
set -u
folder=$(cd "${1:?which folder?}" && pwd) || exit 1
cd "$(dirname "$0")/.." || exit 1
streets=build/default/bin/streets
[ -x "$streets" ] || { printf '%s\n' "build it first: $streets is missing" >&2; exit 1; }
PYTHONDONTWRITEBYTECODE=1 exec python3 tests/system/streets/prove_extracts.py "$streets" data/map/zip-places.tsv "$folder"/*.osm.pbf
