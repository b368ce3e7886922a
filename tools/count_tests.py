"""Sums what ctest ran: the tests of each GoogleTest program, and one for each other command.

Usage: count_tests.py FOLDER...   Each folder holds ctest.xml and NAME.json of every GoogleTest program NAME.
A folder where nothing ran, because the build failed or holds no tests, is one failure.
Ends with the line "N passed, N failed"; the exit status is 1 where anything failed or nothing ran.
"""

import json
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path


def count_program(record: Path) -> tuple[int, int]:
    """Passed and failed tests of one GoogleTest program; a test that was skipped is neither."""
    suites = json.loads(record.read_text(encoding="utf-8"))["testsuites"]
    tests = [test for suite in suites for test in suite["testsuite"] if test["result"] == "COMPLETED"]
    failed = sum(1 for test in tests if test.get("failures"))
    return len(tests) - failed, failed


def was_skipped(case: ElementTree.Element) -> bool:
    """The machine can't run it, as it said itself; a program that was not built is no such test."""
    skipped = case.find("skipped")
    return skipped is not None and skipped.get("message", "").startswith("SKIP_")


def count_folder(folder: Path) -> tuple[int, int]:
    listed = folder / "ctest.xml"
    cases = list(ElementTree.parse(listed).getroot().iter("testcase")) if listed.exists() else []
    if not cases:
        return 0, 1
    passed = failed = 0
    for case in cases:
        if was_skipped(case):
            continue
        succeeded = case.get("status") == "run"
        record = folder / f"{case.get('name')}.json"
        counts = count_program(record) if record.exists() else (int(succeeded), 0)
        passed += counts[0]
        # A program that ended badly without a failed test (a crash, a leak) is one failure itself.
        failed += counts[1] or int(not succeeded)
    return passed, failed


def main(folders: list[str]) -> int:
    counts = [count_folder(Path(folder)) for folder in folders]
    passed, failed = (sum(column) for column in zip(*counts))
    print(f"{passed} passed, {failed} failed")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
