#!/usr/bin/env python3
"""make_extract.py FILE: a small extract of OpenStreetMap (PBF) of one street, for the tests of the tool: written by the description of the
format, with nothing of the program under test."""

import struct
import sys
import zlib

WORDS = ["", "addr:housenumber", "12", "addr:street", "Elm Street", "addr:postcode", "04401", "highway", "residential", "name"]


def varint(value):
    data = b""
    while value > 0x7F:
        data += bytes([value & 0x7F | 0x80])
        value >>= 7
    return data + bytes([value])


def number(field, value):
    return varint(field << 3) + varint(value)


def content(field, data):
    return varint(field << 3 | 2) + varint(len(data)) + data


def numbers(field, values):
    return content(field, b"".join(varint(value) for value in values))


def steps(field, values):
    """Each as its distance from the one before, the sign in the lowest bit."""
    distances = [value - before for value, before in zip(values, [0] + values)]
    return numbers(field, [(step << 1) ^ (step >> 63) for step in distances])


def block(kind, blob):
    head = content(1, kind) + number(3, len(blob))
    return struct.pack(">I", len(head)) + head + blob


def main():
    words = content(1, b"".join(content(1, word.encode()) for word in WORDS))
    # The first node bears an address with its ZIP, the second one without a street; both bear the street.
    tags = [1, 2, 3, 4, 5, 6, 0, 1, 2, 0]
    nodes = steps(1, [1, 2]) + steps(8, [448000000, 448010000]) + steps(9, [-687700000, -687690000]) + numbers(10, tags)
    way = number(1, 10) + numbers(2, [7, 9]) + numbers(3, [8, 4]) + steps(8, [1, 2])
    data = words + content(2, content(2, nodes)) + content(2, content(3, way))
    head = content(4, b"OsmSchema-V0.6") + content(4, b"DenseNodes")
    with open(sys.argv[1], "wb") as file:
        file.write(block(b"OSMHeader", content(1, head)))
        file.write(block(b"OSMData", number(2, len(data)) + content(3, zlib.compress(data))))


main()
