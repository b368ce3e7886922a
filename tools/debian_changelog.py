#!/usr/bin/env python3
"""Prints CHANGELOG.md as a Debian changelog: debian_changelog.py CHANGELOG.md RELEASE_DAY MAINTAINER

A version's heading is "## 1.2.3" or "## 1.2.3, ..."; RELEASE_DAY (2026-11-21) is the newest one's, older ones say theirs
as "## 1.2.2, 2026-10-01".
"""

import datetime
import re
import sys
import textwrap

HEADING = re.compile(r"^## (\d+\.\d+\.\d+)(?:, (.*))?$")


def versions(text: str) -> list[tuple[str, str, list[str]]]:
    """Version, what the heading says besides, and the entries, newest first."""
    found: list[tuple[str, str, list[str]]] = []
    for line in text.splitlines():
        heading = HEADING.match(line)
        if heading:
            found.append((heading[1], heading[2] or "", []))
        elif line.startswith("- ") and found:
            found[-1][2].append(line[2:].strip())
        elif line.strip() and found and found[-1][2]:
            found[-1][2][-1] += " " + line.strip()
    return found


def entry(version: str, day: str, changes: list[str], maintainer: str) -> str:
    date = datetime.datetime.fromisoformat(day).strftime("%a, %d %b %Y 00:00:00 +0000")
    bullets = [textwrap.fill(change, 78, initial_indent="  * ", subsequent_indent="    ") for change in changes]
    return f"korvel ({version}) unstable; urgency=medium\n\n" + "\n".join(bullets) + f"\n\n -- {maintainer}  {date}\n"


def debian_changelog(text: str, release_day: str, maintainer: str) -> str:
    entries = []
    for place, (version, said, changes) in enumerate(versions(text)):
        day = release_day if place == 0 else said
        entries.append(entry(version, day, changes, maintainer))
    if not entries:
        raise SystemExit("the changelog names no version")
    return "\n".join(entries)


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as file:
        print(debian_changelog(file.read(), sys.argv[2], sys.argv[3]), end="")
