#!/usr/bin/env python3
"""Checks that the README shows the consumer program as it is, and that every link of the documents leads somewhere."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LINK = re.compile(r"\]\(([^)#:]+)(?:#[^)]*)?\)")


def faults():
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    for part in ("main.cpp", "CMakeLists.txt"):
        text = (ROOT / "tests/consumer" / part).read_text(encoding="utf-8")
        lines = text.splitlines() if part == "main.cpp" else re.findall(r"^(?:find|target)_.*Tool.*$", text, re.M)
        for line in lines:
            if line not in readme:
                yield f"README.md does not show this line of tests/consumer/{part}: {line}"
    for page in [ROOT / "README.md", ROOT / "CHANGELOG.md", *sorted((ROOT / "docs").glob("*.md"))]:
        prose = re.sub(r"```.*?```", "", page.read_text(encoding="utf-8"), flags=re.S)
        for target in LINK.findall(prose):
            if not (page.parent / target).exists():
                yield f"{page.relative_to(ROOT)}: {target} does not exist"


if __name__ == "__main__":
    found = list(faults())
    print("\n".join(found) if found else "documents: programs and links agree")
    sys.exit(1 if found else 0)
