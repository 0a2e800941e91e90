"""Addresses of a county as people write them, the same at every run."""

import random

from county_file import sides

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
