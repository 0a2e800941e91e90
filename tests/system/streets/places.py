"""Where a house lies, by the definition alone: for the scripts that check the program's answers."""

import math

FEET_OF_DEGREE = 6371008.8 / 0.3048 * math.pi / 180
BESIDE = 30
DRAWN_IN = 25


def in_feet(line, origin):
    """Flat around a point, which is enough for a street."""
    east = FEET_OF_DEGREE * math.cos(math.radians(origin[1]))
    return [((x - origin[0]) * east, (y - origin[1]) * FEET_OF_DEGREE) for x, y in line]


def house(line, part, side):
    """The place of a house beside a line in feet: a part of the length between the crossings, then square to the street."""
    lengths = [math.dist(a, b) for a, b in zip(line, line[1:])]
    whole = sum(lengths)
    drawn_in = min(DRAWN_IN, whole / 4)
    along = drawn_in + part * (whole - 2 * drawn_in)
    for (a, b), length in zip(zip(line, line[1:]), lengths):
        if along <= length and length > 0:
            east, north = (b[0] - a[0]) / length, (b[1] - a[1]) / length
            beside = BESIDE if side == "R" else -BESIDE
            return (a[0] + east * along + north * beside, a[1] + north * along - east * beside)
        along -= length
    raise AssertionError("a place beyond the end")


def off(text, line, part, side):
    """How many feet the place that an answer's text begins with lies off."""
    longitude, latitude = (int(word) / 1e5 for word in text.split(" ")[:2])
    flat = in_feet(line, line[0])
    return math.dist(in_feet([(longitude, latitude)], line[0])[0], house(flat, part, side))
