#!/usr/bin/env python3
"""Line coverage of a build with --coverage whose tests have run: coverage.py BUILD_FOLDER [--uncovered]

Prints the share of lines run in the cores (rules without windows, the engine's too) and in the forms (frm*.cpp and
toolkit/), and fails where one is below its least share. With --uncovered, every line that was not run is listed.
Commands and main are thin callers that the end-to-end tests run as programs of their own; they are not counted.
"""
import collections
import json
import pathlib
import subprocess
import sys

LEAST = {"cores": 95.0, "forms": 85.0}
ROOT = pathlib.Path(__file__).resolve().parent.parent


def kind_of(source):
    folder = source.parts[0]
    if folder == "engine":
        return None if source.name == "main.cpp" else "cores"
    if folder != "src" or source.parts[1] == "commands" or source.name == "main.cpp":
        return None
    return "forms" if source.parts[1] == "toolkit" or source.name.startswith("frm") else "cores"


def counts_of(build):
    """How often each line ran, by file: a line in several programs counts once."""
    lines = collections.defaultdict(lambda: collections.defaultdict(int))
    records = sorted(path for part in ("src", "engine") for path in (build / part).rglob("*.gcda"))
    if not records:
        sys.exit(f"{build} holds no record of a run")
    for record in records:
        text = subprocess.run(["gcov", "--json-format", "--stdout", record.name], cwd=record.parent,
                              capture_output=True, check=True, text=True).stdout
        for document in text.splitlines():
            report = json.loads(document)
            for source in report["files"]:
                path = (pathlib.Path(report["current_working_directory"]) / source["file"]).resolve()
                if not path.is_relative_to(ROOT):
                    continue
                for line in source["lines"]:
                    lines[path.relative_to(ROOT)][line["line_number"]] += line["count"]
    return lines


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    run, all_lines = collections.Counter(), collections.Counter()
    for source, lines in sorted(counts_of(build).items()):
        kind = kind_of(source)
        if kind is None:
            continue
        missed = sorted(number for number, count in lines.items() if count == 0)
        run[kind] += len(lines) - len(missed)
        all_lines[kind] += len(lines)
        if "--uncovered" in sys.argv and missed:
            print(f"{source}: {', '.join(map(str, missed))}")
    low = False
    for kind, least in LEAST.items():
        share = 100 * run[kind] / max(all_lines[kind], 1)
        low |= share < least
        print(f"Line coverage of the {kind}: {share:.1f} % of {all_lines[kind]} lines (at least {least:.0f} %)")
    return 1 if low else 0


if __name__ == "__main__":
    sys.exit(main())
