#!/usr/bin/env python3
"""peer_tables.py COUNTY PLACES: the tables that PostGIS's geocoder asks, as SQL on the output, made from COUNTY (the name of its .shp) and
PLACES (the post offices of the base map).

The geocoder wants more than address ranges. What is made up for it: each name's direction, type and name (by the rules of
`addresses.kinds_of`), the areas beside a street (only that they lie in the town of their ZIP), the towns (all that have a post office,
with numbers of their own and without borders) and which ZIPs are a town's, a county's and a state's."""

import collections
import os
import sys

from addresses import kinds_of
from county_file import read_county, sides

STATE_NUMBERS = {
    "AL": "01", "AK": "02", "AZ": "04", "AR": "05", "CA": "06", "CO": "08", "CT": "09", "DE": "10", "DC": "11", "FL": "12", "GA": "13", "HI": "15",
    "ID": "16", "IL": "17", "IN": "18", "IA": "19", "KS": "20", "KY": "21", "LA": "22", "ME": "23", "MD": "24", "MA": "25", "MI": "26", "MN": "27",
    "MS": "28", "MO": "29", "MT": "30", "NE": "31", "NV": "32", "NH": "33", "NJ": "34", "NM": "35", "NY": "36", "NC": "37", "ND": "38", "OH": "39",
    "OK": "40", "OR": "41", "PA": "42", "RI": "44", "SC": "45", "SD": "46", "TN": "47", "TX": "48", "UT": "49", "VT": "50", "VA": "51", "WA": "53",
    "WV": "54", "WI": "55", "WY": "56",
}  # fmt: skip


def copy(table, columns, rows):
    print(f"COPY tiger.{table} ({', '.join(columns)}) FROM stdin;")
    for row in rows:
        print("\t".join("\\N" if value in ("", None) else str(value) for value in row))
    print("\\.")


def offices(path):
    """(ZIP, town, state, state's number, county, county's number) of each ZIP once."""
    told = {}
    with open(path, encoding="utf-8") as file:
        for row in (line.rstrip("\n").split("\t") for line in file):
            if len(row) > 6 and row[4] in STATE_NUMBERS:
                told.setdefault(row[1], (row[1], row[2], row[4], STATE_NUMBERS[row[4]], row[5], row[6]))
    return list(told.values())


def write_places(told):
    """{(state's number, town): number of the town}."""
    states = sorted({(number, state) for _, _, state, number, _, _ in told})
    towns = sorted({(number, town) for _, town, _, number, _, _ in told})
    counties = sorted({(number, county, name) for _, _, _, number, name, county in told if county})
    numbers = {town: f"{at % 100000:05}" for at, town in enumerate(towns)}
    copy("state", ["statefp", "stusps", "name"], [(number, state, state) for number, state in states])
    copy("place", ["statefp", "placefp", "plcidfp", "name"], [(number, numbers[number, town], number + numbers[number, town], town) for number, town in towns])
    copy("county", ["statefp", "countyfp", "cntyidfp", "name"], {number + county: (number, county, number + county, name) for number, county, name in counties}.values())
    copy("zip_lookup_base", ["zip", "state", "county", "city", "statefp"], [(code, state, county, town, number) for code, town, state, number, county, _ in told])
    copy("zip_state", ["zip", "stusps", "statefp"], [(code, state, number) for code, _, state, number, _, _ in told])
    copy("zip_state_loc", ["zip", "stusps", "statefp", "place"], [(code, state, number, town) for code, town, state, number, _, _ in told])
    return numbers


def named(full_name):
    """(front, name, type in front, type, behind)."""
    words = full_name.split(" ")
    kinds = kinds_of(words)
    of = collections.defaultdict(list)
    for at, (word, kind) in enumerate(zip(words, kinds)):
        of["before" if kind == "type" and "name" in kinds[at:] else kind].append(word)
    return tuple(" ".join(of[kind]) for kind in ("front", "name", "before", "type", "behind"))


def write_streets(county, numbers, told, state, county_number):
    edges, names, ranges, faces = {}, {}, {}, collections.defaultdict(collections.Counter)
    town_of = {code: town for code, town, *_ in told}
    for row, line in county:
        edge = row["TLID"]
        corners = ",".join(f"{x!r} {y!r}" for x, y in line)
        edges[edge] = (state, county_number, edge, row["TFIDL"], row["TFIDR"], row["EDGE_MTFCC"], row["FULLNAME"],
                       row["LFROMHN"], row["LTOHN"], row["RFROMHN"], row["RTOHN"], row["ZIPL"], row["ZIPR"],
                       f"SRID=4269;MULTILINESTRING(({corners}))")  # fmt: skip
        front, name, before, kind, behind = named(row["FULLNAME"])
        names[edge, row["FULLNAME"]] = (edge, row["FULLNAME"], name, front, before, kind, behind, row["ROAD_MTFCC"], state)
        for side, first, last, code in sides(row):
            ranges[edge, side, first, last, code] = (edge, first, last, side, code, state)
        for side in "LR":
            faces[row["TFID" + side]][town_of.get(row["ZIP" + side], "")] += 1
    copy("edges", "statefp countyfp tlid tfidl tfidr mtfcc fullname lfromadd ltoadd rfromadd rtoadd zipl zipr the_geom".split(), edges.values())
    copy("featnames", "tlid fullname name predirabrv pretypabrv suftypabrv sufdirabrv mtfcc statefp".split(), names.values())
    copy("addr", "tlid fromhn tohn side zip statefp".split(), ranges.values())
    rows = []
    for face, towns in faces.items():
        town = next((town for town, _ in towns.most_common() if town), "")
        rows.append((face, state, county_number, numbers.get((state, town), "")))
    copy("faces", "tfid statefp countyfp placefp".split(), rows)


def main():
    stem = os.path.splitext(sys.argv[1])[0]
    number = next(word for word in os.path.basename(stem).split("_") if len(word) == 5 and word.isdigit())
    told = offices(sys.argv[2])
    write_streets(read_county(stem), write_places(told), told, number[:2], number[2:])


main()
