#!/usr/bin/env python3
"""Line coverage of a build with --coverage whose tests have run: coverage.py BUILD_FOLDER [--uncovered]

Prints the share of lines run in the cores (rules without windows, the engine's too) and in the forms (frm*.cpp, toolkit/
and drawing/paint/), and fails where one is below its least share. With --uncovered, every line that was not run is listed.
Commands and main are thin callers that the end-to-end tests run as programs of their own; they are not counted.
"""
import collections
import concurrent.futures
import json
import pathlib
import subprocess
import sys

LEAST = {"cores": 95.0, "forms": 85.0}
ROOT = pathlib.Path(__file__).resolve().parent.parent
NOT_RUN = "assuming not executed"  # of an object file that no test program holds


def kind_of(source):
    folder = source.parts[0]
    if folder == "engine":
        return None if source.name == "main.cpp" else "cores"
    if folder != "src" or source.parts[1] == "commands" or source.name == "main.cpp":
        return None
    is_form = source.name.startswith("frm") or source.is_relative_to("src/toolkit") or source.is_relative_to("src/drawing/paint")
    return "forms" if is_form else "cores"


def report_of(notes):
    """What gcov says of the lines of one object file, those of files outside ROOT left out."""
    command = ["gcov", "--json-format", "--stdout", "--relative-only", "--source-prefix", ROOT, notes.name]
    gcov = subprocess.run(command, cwd=notes.parent, capture_output=True, text=True)
    # gcov ends well, with nothing counted, where a record and the object file are not of the same build.
    complaint = gcov.stderr.strip()
    if gcov.returncode != 0 or not gcov.stdout or (complaint and NOT_RUN not in complaint):
        sys.exit(f"{notes}: gcov says \"{complaint}\". Remove the build folder and run again.")
    return json.loads(gcov.stdout)


def counts_of(build):
    """How often each line ran, by file. What a header defines may be built into the tests' object files alone."""
    notes = sorted(path for part in ("src", "engine", "tests") for path in (build / part).rglob("*.gcno"))
    if not any(path.with_suffix(".gcda").exists() for path in notes):
        sys.exit(f"{build} holds no record of a run")
    lines = collections.defaultdict(lambda: collections.defaultdict(int))
    with concurrent.futures.ThreadPoolExecutor() as several:
        for report in several.map(report_of, notes):
            for source in report["files"]:
                for line in source["lines"]:
                    lines[pathlib.Path(source["file"]).relative_to(ROOT)][line["line_number"]] += line["count"]
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
