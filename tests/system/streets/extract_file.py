"""What an extract of OpenStreetMap holds, by the description of its format (PBF), read with nothing of the program under test."""

import struct
import zlib


def fields(data):
    """(number, value) of a message's fields; the value is a number or bytes."""
    at, end = 0, len(data)
    while at < end:
        key, at = varint(data, at)
        kind = key & 7
        if kind == 0:
            value, at = varint(data, at)
        elif kind == 2:
            size, at = varint(data, at)
            value = data[at : at + size]
            at += size
        else:
            size = {1: 8, 5: 4}[kind]
            value = data[at : at + size]
            at += size
        yield key >> 3, value


def varint(data, at):
    value = shift = 0
    while True:
        byte = data[at]
        at += 1
        value |= (byte & 0x7F) << shift
        if byte < 0x80:
            return value, at
        shift += 7


def varints(data):
    numbers, at = [], 0
    while at < len(data):
        value, at = varint(data, at)
        numbers.append(value)
    return numbers


def signed(value):
    return (value >> 1) ^ -(value & 1)


def sums(numbers):
    total = 0
    for number in numbers:
        total += signed(number)
        yield total


def blocks(path):
    """The unpacked content of every block of data."""
    with open(path, "rb") as file:
        while size := file.read(4):
            head = dict(fields(file.read(struct.unpack(">I", size)[0])))
            blob = dict(fields(file.read(head[3])))
            if head[1] == b"OSMData":
                yield blob[1] if 1 in blob else zlib.decompress(blob[3])


def tags_of(words, keys, values):
    return {words[key]: words[value] for key, value in zip(keys, values)}


def read_dense(data, words, place, nodes):
    parts = dict(fields(data))
    rows = zip(sums(varints(parts[1])), sums(varints(parts[8])), sums(varints(parts[9])))
    rest = iter(varints(parts.get(10, b"")))
    for number, latitude, longitude in rows:
        tags = {}
        while key := next(rest, 0):
            tags[words[key]] = words[next(rest)]
        nodes[number] = (place(longitude, latitude), tags)


def read_way(data, words, ways):
    parts = dict(fields(data))
    tags = tags_of(words, varints(parts.get(2, b"")), varints(parts.get(3, b"")))
    ways.append((parts[1], tags, list(sums(varints(parts.get(8, b""))))))


def read_relation(data, words, relations):
    parts = dict(fields(data))
    tags = tags_of(words, varints(parts.get(2, b"")), varints(parts.get(3, b"")))
    roles = [words[number] for number in varints(parts.get(8, b""))]
    relations.append((tags, list(zip(varints(parts.get(10, b"")), sums(varints(parts.get(9, b""))), roles))))


def read_extract(path):
    """({node: ((longitude, latitude), tags)}, [(way, tags, nodes)], [(tags, [(kind, member, role)])] of relations), places in degrees."""
    nodes, ways, relations = {}, [], []
    for block in blocks(path):
        parts = list(fields(block))
        words = [value.decode() for key, value in fields(next(value for key, value in parts if key == 1))]
        settings = dict((key, value) for key, value in parts if key in (17, 19, 20))
        step, north, east = settings.get(17, 100), settings.get(19, 0), settings.get(20, 0)
        place = lambda x, y: ((east + step * x) / 1e9, (north + step * y) / 1e9)
        for key, group in parts:
            if key != 2:
                continue
            for kind, content in fields(group):
                if kind == 1:
                    node = dict(fields(content))
                    tags = tags_of(words, varints(node.get(2, b"")), varints(node.get(3, b"")))
                    nodes[signed(node[1])] = (place(signed(node[9]), signed(node[8])), tags)
                elif kind == 2:
                    read_dense(content, words, place, nodes)
                elif kind == 3:
                    read_way(content, words, ways)
                elif kind == 4:
                    read_relation(content, words, relations)
    return nodes, ways, relations
