#!/usr/bin/env python3
"""Writes src/platform/values/unicode_data.h: composition, case and character classes, from Python's own Unicode tables.

    scripts/make_unicode_data.py > src/platform/values/unicode_data.h

The version of the tables is part of the text order of existing files: after a run with a newer Python raise
kTextOrderVersion if the order of any text has changed.
"""
import sys
import unicodedata

LAST = 0x10FFFF
SURROGATES = range(0xD800, 0xE000)
HANGUL = range(0xAC00, 0xAC00 + 11172)


def characters():
    for code in range(LAST + 1):
        if code not in SURROGATES and code not in HANGUL:
            yield code, chr(code)


def decompositions():
    for code, char in characters():
        parts = unicodedata.decomposition(char)
        if parts and not parts.startswith("<"):
            first, *second = [int(part, 16) for part in parts.split()]
            yield code, first, second[0] if second else 0


def ranges(test):
    """Runs of neighbouring characters for which test(char) gives the same value that counts as true."""
    start = previous = value = None
    for code, char in characters():
        now = test(char)
        if start is not None and (now != value or code != previous + 1):
            yield start, previous, value
            start = None
        if now and start is None:
            start, value = code, now
        previous = code
    if start is not None:
        yield start, previous, value


def simple(mapping, char):
    """The mapping's result when it is one character, else the character itself."""
    result = mapping(char)
    return ord(result) if len(result) == 1 else ord(char)


def fold(char):
    folded = char.casefold()
    if len(folded) == 1:
        return ord(folded)
    return simple(str.lower, char)


def symbol(char):
    category = unicodedata.category(char)
    return ord(char) > 0x9F and (category[0] in "PSZ" or category in ("Cf", "No"))


def table(out, name, kind, rows):
    rows = [row if isinstance(row, tuple) else (row,) for row in rows]
    out.append(f"inline constexpr {kind} {name}[] = {{")
    line = "   "
    for row in rows:
        item = " {" + ", ".join(str(v) if v < 10 else hex(v) for v in row) + "},"
        if len(line) + len(item) > 138:
            out.append(line)
            line = "   "
        line += item
    out.append(line)
    out.append("};")
    out.append("")


def main():
    pairs = list(decompositions())
    composed = sorted((first, second, code) for code, first, second in pairs
                      if second and unicodedata.normalize("NFC", chr(first) + chr(second)) == chr(code))
    case = [(code, simple(str.upper, char), simple(str.lower, char), fold(char)) for code, char in characters()
            if {simple(str.upper, char), simple(str.lower, char), fold(char)} != {code}]

    out = ["#pragma once", "",
           f"// Unicode {unicodedata.unidata_version}. Written by scripts/make_unicode_data.py; don't edit.", "",
           "namespace platform::unicode_data {", "",
           "struct Decomposition {", "  char32_t composed;", "  char32_t first;", "  char32_t second;  // 0: another single character", "};",
           "struct Composition {", "  char32_t first;", "  char32_t second;", "  char32_t composed;", "};",
           "struct MarkRange {", "  char32_t first;", "  char32_t last;", "  int combiningClass;", "};",
           "struct CaseMapping {", "  char32_t character;", "  char32_t upper;", "  char32_t lower;", "  char32_t folded;", "};",
           "struct SymbolRange {", "  char32_t first;", "  char32_t last;", "};", "",
           "// clang-format off", ""]
    table(out, "kDecompositions", "Decomposition", pairs)
    table(out, "kCompositions", "Composition", composed)
    table(out, "kMarks", "MarkRange", [r for r in ranges(unicodedata.combining)])
    table(out, "kCase", "CaseMapping", case)
    table(out, "kSymbols", "SymbolRange", [(a, b) for a, b, _ in ranges(symbol)])
    out += ["// clang-format on", "", "}  // namespace platform::unicode_data"]
    sys.stdout.write("\n".join(out) + "\n")


if __name__ == "__main__":
    main()
