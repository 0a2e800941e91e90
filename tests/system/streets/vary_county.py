#!/usr/bin/env python3
"""vary_county.py STREETS COUNTY [COUNT]: addresses of COUNTY (the name of its .shp) as people write them: in other forms, misspelt, with parts
missing or wrong. Tells for each way the share that the program STREETS finds as its first answer, and fails where it is less than it was.
The addresses are the same at every run."""

import collections
import os
import random
import subprocess
import sys
import tempfile

from county_file import read_county, sides
from places import off

# A house is found when the answer lies within this, in feet.
NEAR = 60

TOWNS = {"59645": "White Sulphur Springs", "59053": "Martinsdale", "59642": "Ringling", "59086": "Wilsall"}
FULL = {
    "St": "Street", "Ave": "Avenue", "Rd": "Road", "Ln": "Lane", "Dr": "Drive", "Trl": "Trail", "Cir": "Circle", "Hwy": "Highway",
    "N": "North", "S": "South", "E": "East", "W": "West", "NE": "Northeast", "NW": "Northwest", "SE": "Southeast", "SW": "Southwest",
}  # fmt: skip
OTHER = {"Ave": "Av.", "St": "Str", "Rd": "Rd.", "Ln": "Ln.", "Dr": "Drv", "Hwy": "Hiway", "Creek": "Crk", "Mountain": "Mtn", "1st": "First", "2nd": "Second",
         "3rd": "Third", "4th": "Fourth", "5th": "Fifth", "6th": "Sixth", "Fort": "Ft", "Canyon": "Cyn", "Ranch": "Rnch", "Spring": "Spg"}  # fmt: skip
TYPES = {"St", "Ave", "Rd", "Ln", "Dr", "Trl", "Cir"}
DIRECTIONS = {"N", "S", "E", "W", "NE", "NW", "SE", "SW"}
LETTERS = "abcdefghijklmnopqrstuvwxyz"

# The least share in percent that is found, by the way an address is written; what is measured is a little more.
LEAST = {
    "as it is": 100, "lower case": 100, "in full": 100, "other short forms": 100, "direction at the other end": 98, "no direction": 75,
    "no type": 99, "one letter wrong": 99, "two letters wrong": 93, "one letter wrong, no ZIP": 99, "no ZIP": 100, "no town": 100,
    "no state and ZIP": 100, "ZIP wrong": 100, "town wrong": 100, "ZIP of a neighbour": 98, "apartment, ZIP and four": 100,
    "without commas": 100, "all": 98.5,
}  # fmt: skip


def swapped(words, table):
    return [table.get(word, word) for word in words]


def misspelt(chance, words, times):
    """The longest word with letters wrong, never the first; None for names that are too short."""
    at = max(range(len(words)), key=lambda i: len(words[i]) if words[i].isalpha() else 0)
    word = words[at]
    if not word.isalpha() or len(word) < 5 + times:
        return None
    for _ in range(times):
        place = chance.randrange(1, len(word) - 1)
        kind = chance.randrange(4)
        if kind == 0:
            word = word[:place] + word[place + 1 :]
        elif kind == 1:
            word = word[:place] + chance.choice(LETTERS) + word[place:]
        elif kind == 2:
            word = word[:place] + word[place + 1] + word[place] + word[place + 2 :]
        else:
            word = word[:place] + chance.choice(LETTERS) + word[place + 1 :]
    return words[:at] + [word] + words[at + 1 :]


def moved_direction(words):
    if words[0] in DIRECTIONS and len(words) > 2:
        return words[1:] + words[:1]
    if words[-1] in DIRECTIONS and len(words) > 2:
        return words[-1:] + words[:-1]
    return None


def without(words, what):
    kept = [word for word in words if word not in what]
    return kept if len(kept) < len(words) and kept else None


def other_zip(chance, zip_code):
    digits = list(zip_code)
    at = chance.randrange(2, 5)
    digits[at] = str((int(digits[at]) + chance.randrange(1, 10)) % 10)
    return "".join(digits)


def ways(chance, number, words, town, zip_code):
    """(way, address) of each way to write an address that it has."""

    def text(street, city=town, state="MT", code=zip_code):
        if street is None:
            return None
        return ",".join(part for part in (f"{number} {' '.join(street)}" if street else "", city, state, code) if part)

    yield "as it is", text(words)
    yield "lower case", text(words).lower()
    yield "in full", text(swapped(words, FULL))
    yield "other short forms", text(swapped(words, OTHER))
    yield "direction at the other end", text(moved_direction(words))
    yield "no direction", text(without(words, DIRECTIONS))
    yield "no type", text(without(words, TYPES))
    yield "one letter wrong", text(misspelt(chance, words, 1))
    yield "two letters wrong", text(misspelt(chance, words, 2))
    yield "one letter wrong, no ZIP", text(misspelt(chance, words, 1), code="")
    yield "no ZIP", text(words, code="")
    yield "no town", text(words, city="")
    yield "no state and ZIP", text(words, state="", code="")
    yield "ZIP wrong", text(words, code=other_zip(chance, zip_code))
    yield "town wrong", text(words, city=chance.choice(["Helena", "Harlowton", "Bozeman", "Livingston"]))
    yield "ZIP of a neighbour", text(words, code=chance.choice([one for one in TOWNS if one != zip_code]))
    yield "apartment, ZIP and four", text(words + [chance.choice(["Apt 5", "#12", "Unit B", "Ste 200"])], code=zip_code + "-1234")
    yield "without commas", f"{number} {' '.join(words)} {town} MT {zip_code}"


def questions(county, count):
    chance = random.Random(59645)
    houses = []
    for row, line in county:
        for side, first, last, zip_code in sides(row):
            if zip_code in TOWNS:
                houses.append((row["FULLNAME"].split(" "), line, side, first, last, zip_code))
    asked = []
    while len(asked) < count:
        words, line, side, first, last, zip_code = chance.choice(houses)
        steps = abs(last - first) // 2
        number = first + (1 if last > first else -1) * 2 * chance.randrange(steps + 1)
        part = 0.5 if first == last else (number - first) / (last - first)
        for way, address in ways(chance, number, words, TOWNS[zip_code], zip_code):
            if address:
                asked.append((way, address, line, part, side))
    return asked[:count]


def main():
    program, county = sys.argv[1], os.path.splitext(sys.argv[2])[0]
    asked = questions(read_county(county), int(sys.argv[3]) if len(sys.argv) > 3 else 20000)
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "streets.zds")
        subprocess.run([program, "import", county + ".shp", "--into", file], check=True, stdout=subprocess.DEVNULL)
        told = subprocess.run([program, "find", "-", "--streets", file], input="\n".join(q[1] for q in asked), text=True, capture_output=True)
    answers = collections.defaultdict(list)
    for row in told.stdout.splitlines():
        address, _, line = row.split("\t")
        if line and line not in answers[address]:
            answers[address].append(line)
    total, first, among, missed = (collections.Counter() for _ in range(4))
    for way, address, line, part, side in asked:
        near = [off(answer, line, part, side) <= NEAR for answer in answers[address] if len(answer.split(" ")) > 2]
        total[way] += 1
        first[way] += bool(near and near[0])
        among[way] += any(near)
        if os.environ.get("SHOW") == way and not (near and near[0]):
            print(address, answers[address][:3])
    bad = 0
    for way in [*total, "all"]:
        count = sum(total.values()) if way == "all" else total[way]
        best = sum(first.values()) if way == "all" else first[way]
        some = sum(among.values()) if way == "all" else among[way]
        share = 100 * best / count
        print(f"{way:28} {count:6} asked, {share:6.2f} % at the first place, {100 * some / count:6.2f} % among the candidates")
        if share < LEAST.get(way, 0):
            bad += 1
            print(f"  that is less than {LEAST[way]} %")
    sys.exit(1 if bad else 0)


main()
