#!/usr/bin/env python3
"""prove_county.py STREETS COUNTY: asks the program STREETS for both ends and the middle of every range of numbers of COUNTY (the name
of its .shp), under every name that the file gives it, and checks each answer: it is the first one and a match, it lies on the right side
of the right piece of street, as far along as its number says, and as far beside it as a house."""

import os
import subprocess
import sys
import tempfile

from county_file import read_county, sides
from places import off

# What rounding to hundred-thousandths of a degree can shift, in feet.
ROUNDING = 4


def numbers(first, last):
    middle = first + (last - first) // 2
    if (first - last) % 2 == 0 and (middle - first) % 2 != 0:
        middle += 1 if last > first else -1
    return sorted({first, last, middle})


def questions(county):
    for row, line in county:
        for side, first, last, zip_code in sides(row):
            for number in numbers(first, last):
                part = 0.5 if first == last else (number - first) / (last - first)
                yield f"{number} {row['FULLNAME']},{zip_code}".rstrip(","), line, side, part


def wrong(answer, line, side, part):
    """What is wrong with an answer; "" for nothing."""
    # Without a ZIP or town nothing tells that it is this street.
    if answer[1] != ("match" if "," in answer[0] else "guess"):
        return "is told as a " + answer[1]
    if off(answer[2], line, part, side) > ROUNDING:
        return "lies elsewhere"
    return ""


def main():
    program, county = sys.argv[1], os.path.splitext(sys.argv[2])[0]
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "streets.zds")
        subprocess.run([program, "import", county + ".shp", "--into", file], check=True, stdout=subprocess.DEVNULL)
        asked = list(questions(read_county(county)))
        told = subprocess.run([program, "find", "-", "--streets", file], input="\n".join(q[0] for q in asked), text=True, capture_output=True)
    answers = {}
    for row in told.stdout.splitlines():
        answers.setdefault(row.split("\t")[0], []).append(row.split("\t"))
    failures = 0
    for address, line, side, part in asked:
        found = answers.get(address, [["", "", ""]])
        problem = wrong(found[0], line, side, part) if found[0][2] else "is not found"
        if not problem and len(found) > 1:
            problem = "is found twice"
        if problem:
            failures += 1
            print(f"{address} {problem}: {found}")
    print(f"{len(asked)} addresses of the county, {failures} wrong")
    sys.exit(1 if failures or not asked else 0)


main()
