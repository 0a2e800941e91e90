#!/usr/bin/env python3
"""vary_county.py STREETS COUNTY [COUNT]: addresses of COUNTY (the name of its .shp) as people write them: in other forms, misspelt, with parts
missing or wrong. Tells for each way the share that the program STREETS finds as its first answer, and fails where it is less than it was.
The addresses are the same at every run."""

import collections
import os
import subprocess
import sys
import tempfile

from addresses import questions
from county_file import read_county
from places import off

# A house is found when the answer lies within this, in feet.
NEAR = 60

# The least share in percent that is found, by the way an address is written; what is measured is a little more.
LEAST = {
    "as it is": 100, "lower case": 100, "in full": 100, "other short forms": 100, "direction at the other end": 98, "no direction": 73,
    "no type": 99, "one letter wrong": 99, "two letters wrong": 93, "one letter wrong, no ZIP": 99, "no ZIP": 100, "no town": 100,
    "no state and ZIP": 100, "ZIP wrong": 100, "town wrong": 100, "ZIP of a neighbour": 98, "apartment, ZIP and four": 100,
    "without commas": 100, "all": 98.5,
}  # fmt: skip
# Where the text alone doesn't tell which of two streets is meant, the user must at least be offered both.
LEAST_AMONG = {"no direction": 96, "all": 99.5}


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
    for way, address, line, part, side, _ in asked:
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
        if 100 * some / count < LEAST_AMONG.get(way, 0):
            bad += 1
            print(f"  that is less than {LEAST_AMONG[way]} % among the candidates")
    sys.exit(1 if bad else 0)


main()
