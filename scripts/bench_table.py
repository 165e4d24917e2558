#!/usr/bin/env python3
"""Runs the benchmarks once and turns each pair `<Topic>/ours`, `<Topic>/baseline` into a ratio.

bench_table.py BINARY [--update FILE] [--repetitions N] [--filter REGEX]

The ratio is time of ours over time of the baseline, medians of the repetitions of one run with the pairs
interleaved at random. Exit code 1 when a bound is missed. --update replaces the table between the two markers of FILE.
"""

import argparse
import json
import pathlib
import platform
import subprocess
import sys

# Topic: (largest allowed ratio ours / baseline, what the baseline is).
BOUNDS = {
    "UserCalcFromFile": (8.0, "opening and reading the same two files"),
    "ThousandFilmsUserCalc": (0.1, "muParser, formulas set afresh for each film"),
    "ThousandFilmsHeldAnalysis": (1.0, "muParser, formulas compiled once"),
    "LateralCatalogue": (1.3, "hand-written geometry"),
    "ExifHeadLibexif": (1.0, "libexif, the same bytes"),
    "ExifHeadExiv2": (1.0, "exiv2, the same bytes"),
}
BEGIN = "<!-- ratios: begin -->"
END = "<!-- ratios: end -->"
NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def run(binary, repetitions, pattern):
    command = [binary, "--benchmark_format=json", f"--benchmark_repetitions={repetitions}",
               "--benchmark_enable_random_interleaving=true", "--benchmark_report_aggregates_only=true",
               f"--benchmark_filter={pattern}"]
    return json.loads(subprocess.run(command, check=True, capture_output=True, text=True).stdout)


def medians(report):
    """Median CPU time in nanoseconds by (topic, side)."""
    times = {}
    for entry in report["benchmarks"]:
        if entry.get("error_occurred"):
            raise SystemExit(f"{entry['name']}: {entry.get('error_message', 'failed')}")
        if entry.get("aggregate_name") == "median":
            topic, _, side = entry["run_name"].partition("/")
            side = side.split("/")[0]
            if side in ("ours", "baseline"):
                times[topic, side] = entry["cpu_time"] * NANOSECONDS[entry["time_unit"]]
    return times


def readable(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.2f} {unit}"
    return f"{nanoseconds:.1f} ns"


def table(times):
    rows, missed = [], []
    for topic in sorted({topic for topic, _ in times}):
        ours, baseline = times.get((topic, "ours")), times.get((topic, "baseline"))
        if ours is None or baseline is None:
            missed.append(f"{topic}: one side of the pair is missing")
            continue
        ratio = ours / baseline
        bound, what = BOUNDS.get(topic, (None, ""))
        kept = "" if bound is None else ("kept" if ratio <= bound else "MISSED")
        if kept == "MISSED":
            missed.append(f"{topic}: {ratio:.3f} is above {bound}")
        rows.append([topic, what, readable(ours), readable(baseline), f"{ratio:.3f}",
                     "" if bound is None else f"<= {bound:g}", kept])
    missed += [f"{topic}: not measured" for topic in BOUNDS if (topic, "ours") not in times]
    return rows, missed


def markdown(rows, report):
    head = ["topic", "baseline", "ours", "baseline time", "ours / baseline", "bound", ""]
    lines = ["| " + " | ".join(row) + " |" for row in [head, ["---"] * len(head)] + rows]
    context = report["context"]
    lines += ["", f"Measured on {context['num_cpus']} x {context['mhz_per_cpu']} MHz {platform.machine()}, "
                  f"{context['date'][:10]}; medians of one run."]
    return "\n".join(lines)


def update(path, text):
    page = path.read_text(encoding="utf-8")
    head, begin, rest = page.partition(BEGIN)
    _, end, tail = rest.partition(END)
    if not begin or not end:
        raise SystemExit(f"{path} lacks the markers {BEGIN} and {END}")
    path.write_text(f"{head}{BEGIN}\n{text}\n{END}{tail}", encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("binary")
    parser.add_argument("--update", type=pathlib.Path)
    parser.add_argument("--repetitions", type=int, default=9)
    parser.add_argument("--filter", default=".*")
    options = parser.parse_args()
    report = run(options.binary, options.repetitions, options.filter)
    rows, missed = table(medians(report))
    text = markdown(rows, report)
    print(text)
    if options.update:
        update(options.update, text)
    for line in missed:
        print(line, file=sys.stderr)
    return 1 if missed and options.filter == ".*" else 0


if __name__ == "__main__":
    sys.exit(main())
