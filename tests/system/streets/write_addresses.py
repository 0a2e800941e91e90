#!/usr/bin/env python3
"""write_addresses.py COUNTY FOLDER: addresses of COUNTY (the name of its .shp), a file for each way to write them, one a line: full.txt for
those that are as they should be, misspelt.txt for those with one letter wrong. For measurements."""

import os
import sys

from addresses import questions
from county_file import read_county

FILES = {"as it is": "full.txt", "one letter wrong": "misspelt.txt"}
COUNT = 300000

county = read_county(os.path.splitext(sys.argv[1])[0])
lines = {way: [] for way in FILES}
for way, address, *_ in questions(county, COUNT):
    if way in lines:
        lines[way].append(address)
for way, name in FILES.items():
    with open(os.path.join(sys.argv[2], name), "w", encoding="utf-8") as file:
        file.write("\n".join(lines[way]) + "\n")
