#!/usr/bin/env python3
"""compare_peer.py PROGRAMS MAP COUNTY SOCKET [COUNT]: the same addresses of COUNTY (the name of its .shp) understood and found by this
system and by PostGIS's geocoder, whose server listens in the folder SOCKET and has the county in its tables (peer_tables.py). PROGRAMS is
the folder of streets, bench_streets and address_parts, MAP the base map. Prints Markdown. The addresses are the same at every run."""

import collections
import math
import os
import subprocess
import sys
import tempfile

from addresses import FULL, OTHER, Parts, questions
from county_file import read_county
from places import FEET_OF_DEGREE, in_feet

# A house is found when the answer lies within this, in feet; its street when it lies within the second.
NEAR = 60
IN_THE_STREET = 300
# The two put a house 30 feet and 10 metres beside its street. Where both are asked for the same, it is between them.
BESIDE = (30 + 10 / 0.3048) / 2

SHORT = {long.lower(): short.lower() for short, long in FULL.items()} | {other.lower().rstrip("."): word.lower() for word, other in OTHER.items()}
SHORT |= {"mnt": "mountain", "mt": "mountain", "mount": "mountain", "hiway": "hwy", "springs": "spring", "creeks": "creek"}
SHORT |= {word: str(at) for at, word in enumerate("zero one two three four five six seven eight nine ten".split())} | {"sixteen": "16"}

# The server's parsers: its geocoder's own one, and the address standardizer with its rules for the United States.
PARSERS = {"its geocoder's parser": "normalize_address", "its address standardizer": "pagc_normalize_address"}


def plain(text):
    """However it is written, in one form."""
    return " ".join(SHORT.get(word, word) for word in text.lower().replace(".", "").split())


def for_the_peer(address):
    """As its manual writes addresses: a blank behind each comma, none before the ZIP."""
    parts = address.split(",")
    zip_code = parts.pop() if len(parts) > 1 and parts[-1][:5].isdigit() else ""
    return ", ".join(parts) + (" " + zip_code if zip_code else "")


def same_parts(told, expected):
    """Which of the parts are right. Where a type stands in front, as in "US Hwy 12", it may be the name's as well."""
    one, other = Parts(*map(plain, told)), Parts(*map(plain, expected))
    right = [left == right for left, right in zip(one, other)]
    if other.type.endswith("hwy") or other.type == "nfs rd":
        right[2] = right[3] = sorted((one.type + " " + one.name).split()) == sorted((other.type + " " + other.name).split())
    return right


class Peer:
    def __init__(self, socket):
        self.command = ["psql", "-X", "-q", "-A", "-t", "-F", "\t", "-v", "ON_ERROR_STOP=1", "-h", socket, "-d", "peer"]

    def ask(self, sql):
        return subprocess.run(self.command, input=sql, text=True, check=True, capture_output=True).stdout

    def put(self, texts):
        rows = "".join(f"{at}\t{text}\n" for at, text in enumerate(texts))
        self.ask(f"DROP TABLE IF EXISTS asked; CREATE TABLE asked (id int PRIMARY KEY, text varchar);\nCOPY asked FROM stdin;\n{rows}\\.\n")

    def timed(self, sql):
        """The rows of a statement and the processor seconds that it took in the server."""
        clock = "SELECT 'clock', split_part(pg_read_file('/proc/self/stat'), ' ', 14)::int + split_part(pg_read_file('/proc/self/stat'), ' ', 15)::int;"
        rows = [line.split("\t") for line in self.ask("SET search_path = public, tiger;\n" + clock + sql + ";\n" + clock).splitlines()]
        ticks = [int(row[1]) for row in rows if row[0] == "clock"]
        return [row for row in rows if row[0] != "clock"], (ticks[1] - ticks[0]) / os.sysconf("SC_CLK_TCK")

    def parse(self, function):
        columns = "address, predirabbrev, streetname, streettypeabbrev, postdirabbrev, location, stateabbrev, zip".split(", ")
        told = ", ".join(f"coalesce((n).{column}::text, '')" for column in columns)
        rows, seconds = self.timed(f"SELECT id, {told} FROM (SELECT id, {function}(text) n FROM asked OFFSET 0) told ORDER BY id")
        return [row[1:] for row in rows], seconds

    def find(self, parser):
        self.ask(f"SET search_path = public, tiger; SELECT set_geocode_setting('use_pagc_address_parser', '{str(parser.startswith('pagc')).lower()}');")
        rows, seconds = self.timed("SELECT id, coalesce(ST_X(g.geomout)::text, ''), coalesce(ST_Y(g.geomout)::text, '') "
                                   "FROM asked LEFT JOIN LATERAL (SELECT * FROM geocode(text, 1)) g ON true ORDER BY id")  # fmt: skip
        places = {int(row[0]): (float(row[1]), float(row[2])) for row in rows if row[1]}
        return places, seconds


def our_places(programs, base_map, streets, texts):
    told = subprocess.run([programs + "/streets", "find", "-", "--streets", streets, "--map", base_map], input="\n".join(texts), text=True, capture_output=True)
    first = {}
    for row in told.stdout.splitlines():
        address, _, line = row.split("\t")
        if line:
            longitude, latitude = (int(word) / 1e5 for word in line.split(" ")[:2])
            first.setdefault(address, (longitude, latitude))
    return {at: first[text] for at, text in enumerate(texts) if text in first}


def true_place(line, part, side):
    """In feet from the line's first corner: the number's share of the line's length, beside it."""
    flat = in_feet(line, line[0])
    lengths = [math.dist(a, b) for a, b in zip(flat, flat[1:])]
    along = part * sum(lengths)
    for (a, b), length in zip(zip(flat, flat[1:]), lengths):
        if length > 0 and along <= length * (1 + 1e-9):
            east, north = (b[0] - a[0]) / length, (b[1] - a[1]) / length
            beside = BESIDE if side == "R" else -BESIDE
            return a[0] + east * along + north * beside, a[1] + north * along - east * beside
        along -= length
    return flat[-1]


def distances(asked, places):
    """Feet from where each house is to where it was found, None for what wasn't."""
    return [math.dist(in_feet([places[at]], one.line[0])[0], true_place(one.line, one.part, one.side)) if at in places else None for at, one in enumerate(asked)]


def tell_parts(asked, results):
    print("\n| who | texts of which all is right | parts that are right | texts a second |\n| --- | --- | --- | --- |")
    for who, (told, a_second) in results.items():
        right = [same_parts(parts, one.parts) for parts, one in zip(told, asked)]
        if os.environ.get("SHOW") == who:
            for one, parts, of in zip(asked, told, right):
                if not all(of):
                    print(one.way, "|", one.address, "|", *parts, sep="\t")
        whole = 100 * sum(all(one) for one in right) / len(right)
        some = 100 * sum(map(sum, right)) / (len(Parts._fields) * len(right))
        print(f"| {who} | {whole:.2f} % | {some:.2f} % | {a_second:,.0f} |")
    ways = list(dict.fromkeys(one.way for one in asked))
    print("\nTexts of which all is right, by the way they are written:\n\n| way | " + " | ".join(results) + " |\n| --- |" + " --- |" * len(results))
    for way in ways:
        shares = []
        for told, _ in results.values():
            of_way = [all(same_parts(parts, one.parts)) for parts, one in zip(told, asked) if one.way == way]
            shares.append(f"{100 * sum(of_way) / len(of_way):.2f} %")
        print(f"| {way} | " + " | ".join(shares) + " |")


def tell_places(asked, results):
    print(f"\n| who | within {NEAR} feet | within {IN_THE_STREET} feet | median distance of what both found | addresses a second |\n| --- | --- | --- | --- | --- |")
    of = {who: distances(asked, places) for who, (places, _) in results.items()}
    both = [at for at in range(len(asked)) if all(told[at] is not None and told[at] <= IN_THE_STREET for told in of.values())]
    for who, told in of.items():
        near, far = (100 * sum(feet is not None and feet <= limit for feet in told) / len(told) for limit in (NEAR, IN_THE_STREET))
        median = sorted(told[at] for at in both)[len(both) // 2]
        print(f"| {who} | {near:.2f} % | {far:.2f} % | {median:.1f} feet | {results[who][1]:,.0f} |")
    print(f"\nWithin {NEAR} feet, by the way they are written:\n\n| way | asked | " + " | ".join(of) + " |\n| --- | --- |" + " --- |" * len(of))
    for way in dict.fromkeys(one.way for one in asked):
        ids = [at for at, one in enumerate(asked) if one.way == way]
        shares = (f"{100 * sum(told[at] is not None and told[at] <= NEAR for at in ids) / len(ids):.2f} %" for told in of.values())
        print(f"| {way} | {len(ids)} | " + " | ".join(shares) + " |")


def main():
    programs, base_map, county, socket = sys.argv[1:5]
    asked = questions(read_county(os.path.splitext(county)[0]), int(sys.argv[5]) if len(sys.argv) > 5 else 20000)
    texts = [one.address for one in asked]
    with tempfile.TemporaryDirectory() as folder:
        streets, file = os.path.join(folder, "streets.zds"), os.path.join(folder, "asked.txt")
        subprocess.run([programs + "/streets", "import", county, "--into", streets], check=True, stdout=subprocess.DEVNULL)
        with open(file, "w", encoding="utf-8") as out:
            out.write("\n".join(texts) + "\n")
        told = subprocess.run([programs + "/address_parts", streets, base_map, file], text=True, check=True, capture_output=True)
        parsed = {"ours": ([row.split("\t") for row in told.stdout.splitlines()], int(told.stderr))}
        speed = subprocess.run([programs + "/bench_streets", streets, base_map, file], text=True, check=True, capture_output=True).stdout
        found = {"ours": (our_places(programs, base_map, streets, texts), int(speed.split()[-3]))}
    peer = Peer(socket)
    peer.put([for_the_peer(text) for text in texts])
    print(peer.ask("SELECT version() || E'\\n' || postgis_full_version()"))
    for name, function in PARSERS.items():
        rows, seconds = peer.parse(function)
        parsed[name] = rows, len(rows) / seconds
        places, seconds = peer.find(function)
        found[name] = places, len(texts) / seconds
    print(f"{len(asked)} addresses of {os.path.basename(county)}")
    tell_parts(asked, parsed)
    tell_places(asked, found)


main()
