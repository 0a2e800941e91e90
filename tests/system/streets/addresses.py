"""Addresses of a county as people write them, the same at every run."""

import collections
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

# A way to write the address of a house: `line` is its piece of street, `part` how far along it is, `side` L or R. `parts` is what the
# words of the text are.
Question = collections.namedtuple("Question", "way address line part side parts")
Parts = collections.namedtuple("Parts", "number front name type behind town state zip")


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


def kinds_of(words):
    """What each word of a street's name in the county's own form is: front, name, type or behind."""
    kinds = ["name"] * len(words)
    first, last = 0, len(words) - 1
    if words[0] in DIRECTIONS and len(words) > 2:
        kinds[0] = "front"
        first = 1
    if words[last] in DIRECTIONS and len(words) > 2:
        kinds[last] = "behind"
        last -= 1
    if "Hwy" in words or words[:2] == ["NFS", "Rd"]:
        end = words.index("Hwy") if "Hwy" in words else 1
        kinds[first : end + 1] = ["type"] * (end + 1 - first)
    elif (words[last] in TYPES or words[last] == "Crk") and last > first:
        kinds[last] = "type"
    return kinds


def other_zip(chance, zip_code):
    digits = list(zip_code)
    at = chance.randrange(2, 5)
    digits[at] = str((int(digits[at]) + chance.randrange(1, 10)) % 10)
    return "".join(digits)


def ways(chance, number, words, town, zip_code):
    """(way, address, parts) of each way to write an address that it has; the address is None where it can't be written so."""
    kinds = dict(zip(words, kinds_of(words)))

    def kind_of(at, street, moved):
        """Of a word that was changed, that of the word in its place."""
        kind = kinds.get(street[at]) or kinds[words[at]]
        return {"front": "behind", "behind": "front"}.get(kind, kind) if moved else kind

    def written(way, street, city=town, state="MT", code=zip_code, behind=(), join=None):
        if street is None:
            return way, None, None
        line = " ".join([str(number), *street, *behind])
        text = join(line) if join else ",".join(part for part in (line, city, state, code) if part)
        of = collections.defaultdict(list)
        for at, word in enumerate(street):
            of[kind_of(at, street, way == "direction at the other end")].append(word)
        named = (" ".join(of[kind]) for kind in ("front", "name", "type", "behind"))
        return way, text, Parts(str(number), *named, city, state, code[:5])

    yield written("as it is", words)
    way, text, parts = written("lower case", words)
    yield way, text.lower(), parts
    yield written("in full", swapped(words, FULL))
    yield written("other short forms", swapped(words, OTHER))
    yield written("direction at the other end", moved_direction(words))
    yield written("no direction", without(words, DIRECTIONS))
    yield written("no type", without(words, TYPES))
    yield written("one letter wrong", misspelt(chance, words, 1))
    yield written("two letters wrong", misspelt(chance, words, 2))
    yield written("one letter wrong, no ZIP", misspelt(chance, words, 1), code="")
    yield written("no ZIP", words, code="")
    yield written("no town", words, city="")
    yield written("no state and ZIP", words, state="", code="")
    yield written("ZIP wrong", words, code=other_zip(chance, zip_code))
    yield written("town wrong", words, city=chance.choice(["Helena", "Harlowton", "Bozeman", "Livingston"]))
    yield written("ZIP of a neighbour", words, code=chance.choice([one for one in TOWNS if one != zip_code]))
    unit = chance.choice(["Apt 5", "#12", "Unit B", "Ste 200"])
    yield written("apartment, ZIP and four", words, code=zip_code + "-1234", behind=[unit])
    yield written("without commas", words, join=lambda line: f"{line} {town} MT {zip_code}")


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
        for way, address, parts in ways(chance, number, words, TOWNS[zip_code], zip_code):
            if address:
                asked.append(Question(way, address, line, part, side, parts))
    return asked[:count]
