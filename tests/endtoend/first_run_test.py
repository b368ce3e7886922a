"""Follows the guide's first page to the letter: its commands, then its steps in the windows as they are written, each in a clean
folder, until graph, report and published page are there. It must take seconds, since a reader is promised a quarter of an hour.

first_run_test.py SOURCE BUILD
"""

import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import time

SOURCE, BUILD = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
APP = BUILD / "app"
PAGE = (SOURCE / "docs/guide/first-run.md").read_text(encoding="utf-8")
PATIENCE = 120  # seconds, on a busy machine


class Failed(Exception):
    pass


def expect(holds, what):
    if not holds:
        raise Failed(what)


def check_spreadsheet(file):
    lines = file.read_text(encoding="utf-8").splitlines()
    expect(len(lines) > 100, f"{file.name} has {len(lines)} lines")
    expect(any('"Ashcombe STW"' in line for line in lines), f"{file.name} names no sewage works")


def check_page(file, title):
    page = file.read_text(encoding="utf-8")
    expect(title in page and "Ashcombe STW" in page, f"{file.name} lacks its title or its places")


def follow_commands(folder):
    (folder / "ALDER.DAT").write_bytes((SOURCE / "samples/ALDER.DAT").read_bytes())
    environment = {"PATH": os.environ["PATH"], "HOME": str(folder), "LC_ALL": "C.UTF-8"}
    fence = re.search(r"```console\n(.*?)```", PAGE, re.DOTALL)[1]
    commands = [line[2:] for line in fence.splitlines() if line.startswith("$ ")]
    expect(len(commands) >= 5, "the page has too few commands")
    for command in commands:
        words = shlex.split(command)
        done = subprocess.run([str(APP / words[0]), *words[1:]], cwd=folder, env=environment, capture_output=True, text=True,
                              timeout=PATIENCE)
        expect(done.returncode == 0, f"{command}: {done.stdout}{done.stderr}")
    expect((folder / "profile.png").read_bytes().startswith(b"\x89PNG"), "there is no picture")
    expect((folder / "ALDER-report.pdf").read_bytes().startswith(b"%PDF"), "there is no report")
    check_spreadsheet(folder / "ALDER.csv")
    check_page(folder / "ALDER.html", "River Alder today")


def follow_windows(home):
    import screen_reader  # ends the test as skipped where there is no screen
    screen = screen_reader.start_screen(home)
    reader = screen_reader.Reader()
    try:
        begun = time.monotonic()
        own = screen_reader.fresh_folder(home, APP)
        screen.insert(0, subprocess.Popen([APP / "korvel", "--application-folder", own]))
        take_steps(reader, home / "korvel-samples")
        print(f"in the windows: {time.monotonic() - begun:.1f} s")
    finally:
        screen_reader.end_windows(reader)
        screen_reader.end(screen)


def take_steps(reader, folder):
    import guided_steps
    walk = guided_steps.Walk(reader, folder)
    steps = guided_steps.steps_of(PAGE, "In the windows")
    expect(len(steps) >= 8, "the page has too few steps")
    try:
        for step in steps:
            walk.follow(step)
    except guided_steps.NotFollowed as failure:
        raise Failed(f"the guide can't be followed: {failure}") from None
    check_spreadsheet(folder / "ALDER2.csv")
    check_page(folder / "ALDER2-page.html", "River Alder")


def main():
    try:
        with tempfile.TemporaryDirectory() as name:
            begun = time.monotonic()
            follow_commands(pathlib.Path(name))
            print(f"by commands: {time.monotonic() - begun:.1f} s")
        with tempfile.TemporaryDirectory() as name:
            follow_windows(pathlib.Path(name))
    except Failed as failure:
        print(failure)
        return 1
    return 0


sys.exit(main())
