#!/usr/bin/env python3
"""Keeps what the long checks said, and puts it into docs/testing.md as one table.

check_table.py record RESULTS CHECK OUTCOME SECONDS LOG   the log's last words become what the check said
check_table.py write RESULTS PAGE                         between the page's marks
"""

import pathlib
import re
import subprocess
import sys

BEGIN, END = "<!-- the table of tools/check_all.sh -->", "<!-- the end of that table -->"
CONTROL = re.compile(r"\x1b\[[0-9;]*[A-Za-z]|[\x00-\x08\x0b-\x1f]")


def last_words(log: str) -> str:
    lines = [CONTROL.sub("", line).strip() for line in log.splitlines()]
    said = next((line for line in reversed(lines) if line), "nothing")
    return said.replace("\t", " ").replace("|", "/")[:120]


def commit() -> str:
    result = subprocess.run(["git", "rev-parse", "--short", "HEAD"], capture_output=True, text=True)
    return result.stdout.strip() or "unknown"


def read(results: pathlib.Path) -> dict[str, list[str]]:
    if not results.exists():
        return {}
    rows = (line.split("\t") for line in results.read_text(encoding="utf-8").splitlines())
    return {row[0]: row[1:] for row in rows}


def record(results: pathlib.Path, check: str, outcome: str, seconds: str, log: pathlib.Path) -> None:
    rows = read(results)
    words = last_words(log.read_text(encoding="utf-8", errors="replace"))
    rows[check] = [outcome, f"{round(int(seconds) / 60)} min", commit(), words]
    results.write_text("".join("\t".join([name, *row]) + "\n" for name, row in rows.items()), encoding="utf-8")


def table(rows: dict[str, list[str]]) -> str:
    lines = ["| check | outcome | took | at commit | its last words |", "|---|---|--:|---|---|"]
    lines += [f"| {name} | " + " | ".join(row) + " |" for name, row in rows.items()]
    return "\n".join(lines)


def write(results: pathlib.Path, page: pathlib.Path) -> None:
    text = page.read_text(encoding="utf-8")
    before, begin, rest = text.partition(BEGIN)
    _, end, after = rest.partition(END)
    if not begin or not end:
        raise SystemExit(f"{page} has no place for the table")
    page.write_text(f"{before}{BEGIN}\n\n{table(read(results))}\n\n{END}{after}", encoding="utf-8")


def main(arguments: list[str]) -> int:
    if len(arguments) == 6 and arguments[0] == "record":
        record(pathlib.Path(arguments[1]), *arguments[2:5], pathlib.Path(arguments[5]))
    elif len(arguments) == 3 and arguments[0] == "write":
        write(pathlib.Path(arguments[1]), pathlib.Path(arguments[2]))
    else:
        print(__doc__, file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
