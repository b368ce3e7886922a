"""Takes the steps of the guide's chapters in the windows, as they are written, one chapter after the other as someone new would.

guided_chapters_test.py SOURCE BUILD      skipped (status 77) where there is no screen
"""

import pathlib
import subprocess
import sys
import tempfile

import screen_reader
from guided_steps import NotFollowed, Walk, steps_of

SOURCE, BUILD = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
GUIDE = SOURCE / "docs/guide"
# How many of its steps, all where it is None. Each chapter begins on the main form.
CHAPTERS = (("first-run", 3), ("compare", None), ("reports", None), ("batches", None))
WRITTEN = ("ALDER.SGR", "ALDER2.SGR", "ALDER.csv")


def follow(walk):
    for name, count in CHAPTERS:
        steps = steps_of((GUIDE / f"{name}.md").read_text(encoding="utf-8"), "In the windows")[:count]
        if len(steps) < 3:
            raise NotFollowed(f"{name} has too few steps")
        for step in steps:
            walk.follow(step)
    for name in WRITTEN:
        if not (walk.folder / name).is_file():
            raise NotFollowed(f"there is no {name}")


def main():
    with tempfile.TemporaryDirectory() as name:
        home = pathlib.Path(name)
        screen = screen_reader.start_screen(home)
        reader = screen_reader.Reader()
        screen.insert(0, subprocess.Popen([BUILD / "app/korvel", "--application-folder", screen_reader.fresh_folder(home, BUILD / "app")]))
        try:
            follow(Walk(reader, home / "korvel-samples"))
        except NotFollowed as failure:
            print(f"the guide can't be followed: {failure}")
            return 1
        finally:
            screen_reader.end_windows(reader)
            screen_reader.end(screen)
    return 0


if __name__ == "__main__":
    sys.exit(main())
