#!/usr/bin/env python3
"""cookbook_tests.py COOKBOOK OUTPUT: makes one test program of the cookbook's code blocks.

A block marked `cpp file` is put at file scope, every other C++ block becomes a test named after its heading. Each test
runs after the blocks of the first heading, which say where the analyses lie.
"""

import pathlib
import re
import sys

HEAD = """// Made from {source}; edit that.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "tool/analysis/evaluation.h"
#include "tool/analysis/result_table.h"
"""
# The blocks speak plain C++; in the tests a failed assertion names its line in the cookbook.
ASSERT = """
#undef assert
#define assert(...) ASSERT_TRUE((__VA_ARGS__))
"""
BLOCK = re.compile(r"^## (?P<heading>[^\n]*)$|^```cpp(?P<file> file)?\n(?P<code>.*?)^```$", re.MULTILINE | re.DOTALL)


def name_of(heading, used):
    name = "".join(word.capitalize() for word in re.findall(r"[A-Za-z]+", heading)) or "Start"
    used[name] = used.get(name, 0) + 1
    return name if used[name] == 1 else f"{name}{used[name]}"


def main(source, output):
    text = pathlib.Path(source).read_text(encoding="utf-8")
    heading, used, pieces, first = "", {}, [], None
    for match in BLOCK.finditer(text):
        if match["heading"]:
            heading = match["heading"]
            continue
        line = text.count("\n", 0, match.start("code")) + 1
        place = f'#line {line} "{source}"\n'
        if match["file"]:
            pieces.append(place + match["code"])
        elif first is None:
            first = place + match["code"]
            pieces.append(f"class Cookbook : public testing::Test {{\n void SetUp() override {{\n{first} }}\n}};\n")
            pieces.append("TEST_F(Cookbook, Starts) {}\n")
        else:
            pieces.append(f"TEST_F(Cookbook, {name_of(heading, used)}) {{\n{place}{match['code']}}}\n")
    if first is None or sum(used.values()) < 10:
        raise SystemExit(f"{source}: fewer than ten blocks found")
    pathlib.Path(output).write_text(HEAD.format(source=source) + ASSERT + "\n".join(pieces), encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
