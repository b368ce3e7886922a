"""Refuses files that lean on papers outside the repository: a rule is told where it is kept, in our own words.

Usage: check_words.py [FOLDER]
"""

import re
import sys
from pathlib import Path

from tracked import ROOT, tracked_files

WORDS = re.compile(
    rb"\bParts? [1-7]\.|(spec|design|decisions|contract)\.md|\.\./shared|[Ss]pecification"
    rb"|the original (program|version|system)|/work/(main|shared)"
)


def problems(root: Path) -> list[str]:
    found = []
    for path in tracked_files(root):
        for number, line in enumerate(path.read_bytes().splitlines(), start=1):
            if match := WORDS.search(line):
                found.append(f"{path.relative_to(root)}:{number}: {match.group().decode()}")
    return found


def main(arguments: list[str]) -> int:
    found = problems(Path(arguments[0]) if arguments else ROOT)
    print("\n".join(found) or "no such words")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
