"""The project's files: those that git tracks, or all of a copy without git but for what is built."""

import os
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
NOT_OURS = {"build", "tour", "__pycache__"}


def tracked_files(root: Path = ROOT) -> list[Path]:
    command = ["git", "-c", "safe.directory=*", "-C", str(root), "ls-files", "-z"]
    try:
        listed = subprocess.run(command, check=True, capture_output=True).stdout.split(b"\0")
        names = [os.fsdecode(name) for name in listed if name]
    except (OSError, subprocess.CalledProcessError):
        names = [path.relative_to(root) for path in root.rglob("*")]
        names = [name for name in names if not NOT_OURS & set(name.parts) and not name.parts[0].startswith(".")]
    return sorted(root / name for name in names if (root / name).is_file())
