"""The records of a county's address ranges as its makers describe the format, read with nothing of the program under test."""

import struct


def read_table(path):
    """The rows of a .dbf as dictionaries."""
    with open(path, "rb") as file:
        data = file.read()
    count, header, width = struct.unpack("<IHH", data[4:12])
    fields = []
    at = 32
    while data[at] != 0x0D:
        fields.append((data[at : at + 11].split(b"\0")[0].decode(), data[at + 16]))
        at += 32
    rows = []
    for row in range(count):
        at = header + row * width + 1
        values = {}
        for name, length in fields:
            values[name] = data[at : at + length].decode("utf-8", "replace").strip()
            at += length
        rows.append(values)
    return rows


def read_lines(path):
    """The lines of a .shp: lists of (longitude, latitude) in degrees."""
    with open(path, "rb") as file:
        data = file.read()
    lines = []
    at = 100
    while at < len(data):
        length = struct.unpack(">i", data[at + 4 : at + 8])[0] * 2
        body = data[at + 8 : at + 8 + length]
        kind = struct.unpack("<i", body[:4])[0]
        assert kind == 3, "a record is no line"
        parts, points = struct.unpack("<ii", body[36:44])
        start = 44 + 4 * parts
        lines.append([struct.unpack("<dd", body[start + 16 * i : start + 16 * i + 16]) for i in range(points)])
        at += 8 + length
    return lines


def read_county(stem):
    """(row, line) of every record of STEM.dbf and STEM.shp."""
    rows = read_table(stem + ".dbf")
    lines = read_lines(stem + ".shp")
    assert len(rows) == len(lines)
    return list(zip(rows, lines))


def sides(row):
    """(left or right, first number, last number, ZIP) of the sides that have numbers."""
    for letter in "LR":
        if row[letter + "FROMHN"]:
            yield letter, int(row[letter + "FROMHN"]), int(row[letter + "TOHN"]), row["ZIP" + letter]
