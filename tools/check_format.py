"""Refuses C++ files that clang-format would change."""

import shutil
import subprocess
import sys

from tracked import tracked_files


def main() -> int:
    formatter = shutil.which("clang-format-14") or shutil.which("clang-format")
    files = [str(path) for path in tracked_files() if path.suffix in {".h", ".cpp"}]
    if not formatter or not files:
        print("clang-format or the C++ files are missing", file=sys.stderr)
        return 1
    return subprocess.run([formatter, "--dry-run", "-Werror", *files]).returncode


if __name__ == "__main__":
    sys.exit(main())
