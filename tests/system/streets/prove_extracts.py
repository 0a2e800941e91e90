#!/usr/bin/env python3
"""prove_extracts.py STREETS ZIPS EXTRACT...: imports extracts of OpenStreetMap by the program STREETS and asks it for every address of
theirs, in full, and for a sample of their streets. ZIPS is the list of post offices, which tells the town of a ZIP.
Of an extract with addresses, 99.5 of 100 that have a street, a ZIP and a place, and are there once, must be found within 20 m."""

import collections
import math
import os
import random
import subprocess
import sys
import tempfile

from extract_file import read_extract

METRES_OF_DEGREE = 6371008.8 * math.pi / 180
NEAR = 20
SHARE = 0.995
SAMPLE = 200


def apart(one, other):
    east = math.cos(math.radians(one[1])) * (one[0] - other[0])
    return METRES_OF_DEGREE * math.hypot(east, one[1] - other[1])


def middle(ring):
    """The centre of what a ring surrounds, else of its corners."""
    x0, y0 = ring[0]
    area = x = y = 0.0
    if ring[0] == ring[-1]:
        for (x1, y1), (x2, y2) in zip(ring, ring[1:]):
            cross = (x1 - x0) * (y2 - y0) - (x2 - x0) * (y1 - y0)
            area += cross
            x += (x1 + x2 - 2 * x0) * cross
            y += (y1 + y2 - 2 * y0) * cross
    if abs(area) < 1e-14:
        return sum(p[0] for p in ring) / len(ring), sum(p[1] for p in ring) / len(ring)
    return x0 + x / (3 * area), y0 + y / (3 * area)


def outer_ring(members, nodes, refs_of):
    """Of a relation whose outer ring is one way; None for others, which are few."""
    outer = [refs_of.get(member, []) for kind, member, role in members if kind == 1 and role in ("outer", "")]
    if len(outer) != 1 or not outer[0] or any(ref not in nodes for ref in outer[0]):
        return None
    return [nodes[ref][0] for ref in outer[0]]


def addresses(nodes, ways, relations):
    """(tags, place or None, is on a way) of everything with a house number."""
    refs_of = {number: refs for number, _, refs in ways}
    for tags, members in relations:
        if "addr:housenumber" in tags:
            ring = outer_ring(members, nodes, refs_of)
            yield tags, middle(ring) if ring else None, True
    for place, tags in nodes.values():
        if "addr:housenumber" in tags:
            yield tags, place, False
    for _, tags, refs in ways:
        if "addr:housenumber" in tags:
            ring = [nodes[ref][0] for ref in refs if ref in nodes]
            yield tags, middle(ring) if ring else None, True


def towns(path):
    """{ZIP: (town, state)}."""
    with open(path, encoding="utf-8") as file:
        rows = (line.split("\t") for line in file)
        return {row[1]: (row[2], row[4]) for row in rows if len(row) > 4}


def find(program, file, asked):
    """{text: [(how, longitude, latitude)]}."""
    told = subprocess.run([program, "find", "-", "--streets", file], input="\n".join(asked), text=True, capture_output=True)
    answers = collections.defaultdict(list)
    for row in told.stdout.splitlines():
        text, how, line = row.split("\t")
        if line:
            longitude, latitude = (int(word) / 1e5 for word in line.split(" ")[:2])
            answers[text].append((how, (longitude, latitude), line))
    return answers


def prove_addresses(program, file, nodes, ways, relations, places):
    every = list(addresses(nodes, ways, relations))
    same = collections.Counter((t["addr:housenumber"], t.get("addr:street"), t.get("addr:postcode")) for t, _, _ in every)
    counts = collections.Counter()
    asked = []
    for tags, place, on_way in every:
        number, street, zip_code = tags["addr:housenumber"], tags.get("addr:street"), tags.get("addr:postcode")
        double = same[number, street, zip_code] > 1
        counts["on ways"] += on_way
        counts["hyphenated"] += "-" in number
        counts["without a street"] += street is None
        counts["without a ZIP"] += zip_code is None
        counts["double"] += double
        if street is None or zip_code is None or double:
            continue
        counts["asked for"] += 1
        town, state = places.get(zip_code, (tags.get("addr:city", ""), tags.get("addr:state", "")))
        asked.append((f"{number} {street},{town},{state},{zip_code}", place))
    answers = find(program, file, [text for text, _ in asked])
    print(f"  {len(every)} addresses: " + ", ".join(f"{count} {what}" for what, count in counts.items()))
    found = 0
    distances = []
    for text, place in asked:
        best = answers.get(text, [(None, None, "nothing")])[0]
        if place and best[1]:
            distances.append(apart(place, best[1]))
        if place and best[1] and distances[-1] <= NEAR:
            found += 1
        else:
            where = "none of its corners is in the extract" if not place else f"{best[2]}" + (f", {distances[-1]:.0f} m off" if best[1] else "")
            print(f"    not found: {text}: {where}")
    if not asked:
        return True
    distances.sort()
    print(f"  {found} of {len(asked)} found within {NEAR} m ({100 * found / len(asked):.2f} %), half of them within {distances[len(distances) // 2]:.1f} m")
    return found >= SHARE * len(asked)


def prove_streets(program, file, nodes, ways, zip_code):
    """A sample of the named streets, by name and the ZIP that their own tags tell: the answer must lie near one that bears the name."""
    by_name = collections.defaultdict(list)
    for _, tags, refs in ways:
        if tags.get("highway") in ("residential", "primary", "secondary", "tertiary", "unclassified") and tags.get("name"):
            by_name[tags["name"]].append(([nodes[ref][0] for ref in refs if ref in nodes], tags.get("tiger:zip_left", zip_code)))
    names = sorted(name for name in by_name if any(len(line) > 1 for line, _ in by_name[name]))
    sample = random.Random(1).sample(names, min(SAMPLE, len(names)))
    asked = {f"{name},{next(zip_of for _, zip_of in by_name[name])}": name for name in sample}
    answers = find(program, file, list(asked))
    found = 0
    for text, name in asked.items():
        corners = [corner for line, _ in by_name[name] for corner in line]
        best = answers.get(text, [(None, None, "nothing")])[0]
        # On a long straight piece the middle is far from both its ends.
        if best[1] and min(apart(corner, best[1]) for corner in corners) <= 500 and "(street)" in best[2]:
            found += 1
        else:
            print(f"    not found: {text}: {best[2]}")
    print(f"  {found} of a sample of {len(asked)} street names found (of {len(names)})")
    return len(asked) > 0 and found >= 0.95 * len(asked)


def main():
    program, places = sys.argv[1], towns(sys.argv[2])
    good = True
    with tempfile.TemporaryDirectory() as folder:
        for path in sys.argv[3:]:
            file = os.path.join(folder, os.path.basename(path) + ".zds")
            print(os.path.basename(path))
            told = subprocess.run([program, "import", path, "--into", file], check=True, text=True, capture_output=True).stdout
            print("  " + told.splitlines()[-1].removeprefix(path + ": "))
            subprocess.run([program, "check", file], check=True, stdout=subprocess.DEVNULL)
            nodes, ways, relations = read_extract(path)
            zips = collections.Counter(tags["tiger:zip_left"] for _, tags, _ in ways if "tiger:zip_left" in tags)
            zips.update(tags["addr:postcode"] for _, tags, _ in ways if "addr:postcode" in tags)
            good = prove_addresses(program, file, nodes, ways, relations, places) and good
            good = prove_streets(program, file, nodes, ways, zips.most_common(1)[0][0] if zips else "") and good
    sys.exit(0 if good else 1)


main()
