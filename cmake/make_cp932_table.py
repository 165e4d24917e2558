#!/usr/bin/env python3
"""Writes tool/framework/text/cp932_table.h: the characters that occur in cp932("...") literals of the sources.

Run it from anywhere after adding a Japanese literal; --check only tells whether the table is up to date.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLE = ROOT / "tool/framework/text/cp932_table.h"
LITERAL = re.compile(r'\bcp932\(\s*((?:"(?:[^"\\\n]|\\.)*"\s*)+)\)')
HEAD = """#pragma once
// Made by cmake/make_cp932_table.py: the characters of the Japanese literals in the sources. Do not edit.

#include <cstdint>

namespace framework {

struct Cp932Entry {
  char32_t unicode;
  std::uint16_t cp932;
};

// clang-format off
inline constexpr Cp932Entry cp932_table[] = {
"""
TAIL = """};
// clang-format on

}  // namespace framework
"""


def characters():
    found = set()
    for folder in ("tool", "backends", "apps", "tests"):
        for path in (ROOT / folder).rglob("*"):
            if path.suffix in (".h", ".cpp"):
                for literal in LITERAL.findall(path.read_text(encoding="utf-8")):
                    found.update(c for c in literal if ord(c) > 0x7F)
    return sorted(found)


def table():
    rows = []
    for character in characters():
        code = int.from_bytes(character.encode("cp932"), "big")
        rows.append(f"    {{0x{ord(character):04X}, 0x{code:04X}}},  // {character}\n")
    return HEAD + "".join(rows) + TAIL


def main():
    text = table()
    current = TABLE.read_text(encoding="utf-8") if TABLE.exists() else ""
    if "--check" in sys.argv:
        if text != current:
            sys.exit(f"{TABLE.relative_to(ROOT)} is out of date: run cmake/make_cp932_table.py")
    elif text != current:
        TABLE.write_text(text, encoding="utf-8")


main()
