#!/usr/bin/env python3
"""readme_output.py PROGRAM [--update]: the README shows what `make run` prints; checks or renews it."""

import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
BEGIN, END = "<!-- make run: begin -->", "<!-- make run: end -->"


def output_of(program):
    with tempfile.TemporaryDirectory() as out:
        shown = subprocess.run([ROOT / "scripts/run_samples.sh", pathlib.Path(program).resolve(), out], check=True,
                               capture_output=True, text=True, encoding="utf-8").stdout
    lines = [line.rstrip() for line in shown.replace(out, "out").strip().splitlines()]
    return "```\n" + "\n".join(lines) + "\n```"


def main(program, *options):
    page = ROOT / "README.md"
    head, begin, rest = page.read_text(encoding="utf-8").partition(BEGIN)
    shown, end, tail = rest.partition(END)
    if not begin or not end:
        raise SystemExit(f"README.md lacks {BEGIN} and {END}")
    printed = output_of(program)
    if shown.strip() == printed:
        print("README.md shows what make run prints")
        return 0
    if "--update" in options:
        page.write_text(f"{head}{BEGIN}\n{printed}\n{END}{tail}", encoding="utf-8")
        print("README.md renewed")
        return 0
    there, now = shown.strip().splitlines(), printed.splitlines()
    line = next((i for i, (a, b) in enumerate(zip(there, now)) if a != b), min(len(there), len(now)))
    print(f"README.md does not show what make run prints (renew it with `make readme`); first difference:\n"
          f"  README: {there[line] if line < len(there) else '(ends)'}\n"
          f"  now:    {now[line] if line < len(now) else '(ends)'}")
    return 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
