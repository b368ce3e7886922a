"""Follows the guide's first page to the letter: its commands, then its steps in the windows, each in a clean folder, until graph
and report are there. It must take seconds, since a reader is promised a quarter of an hour.

first_run_test.py SOURCE BUILD
"""

import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import time

SOURCE, BUILD = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
APP = BUILD / "app"
PAGE = (SOURCE / "docs/guide/first-run.md").read_text(encoding="utf-8")
PATIENCE = 120  # seconds, on a busy machine
TOOLS = "Xvfb openbox xdotool xprop import identify".split()
SKIPPED = 77


class Failed(Exception):
    pass


def expect(holds, what):
    if not holds:
        raise Failed(what)


def await_that(condition, what):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.1)
    raise Failed(f"in vain: {what}")


def clean_folder(name):
    folder = pathlib.Path(name) / "work"
    folder.mkdir()
    shutil.copy(SOURCE / "samples/ALDER.DAT", folder)
    return folder


def check_spreadsheet(file):
    lines = file.read_text(encoding="utf-8").splitlines()
    expect(len(lines) > 100, f"{file.name} has {len(lines)} lines")
    expect(any('"Ashcombe STW"' in line for line in lines), f"{file.name} names no sewage works")


def follow_commands(folder):
    environment = {"PATH": os.environ["PATH"], "HOME": str(folder.parent), "LC_ALL": "C.UTF-8"}
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
    page = (folder / "ALDER.html").read_text(encoding="utf-8")
    expect("River Alder today" in page and "Ashcombe STW" in page, "the published page lacks its title or its places")


class Desktop:
    """A screen of its own with a window manager, and the program on it."""

    def __init__(self, folder):
        self.programs = []
        self.environment = {**os.environ, "HOME": str(folder.parent)}
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_DATA_HOME", "KORVEL_HOME"):
            self.environment.pop(name, None)
        read, write = os.pipe()
        self.start("Xvfb", "-displayfd", str(write), "-screen", "0", "1366x768x24", "-noreset", "-nolisten", "tcp",
                   pass_fds=(write,))
        os.close(write)
        with os.fdopen(read) as told:
            self.environment["DISPLAY"] = ":" + told.readline().strip()
        self.start("openbox", "--sm-disable")

    def start(self, *command, **more):
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self.programs.append(subprocess.Popen(command, env=self.environment, **quiet, **more))

    def end(self):
        for program in reversed(self.programs):
            program.terminate()
            program.wait()

    def say(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, check=False).stdout

    def windows(self, title):
        ids = re.findall(r"0x[0-9a-f]+", self.say("xprop", "-root", "_NET_CLIENT_LIST"))
        return [window for window in ids if self.say("xdotool", "getwindowname", window).strip() == title]

    def in_front(self, title, count=1):
        """Waits until the last of so many windows with the title is the active one."""
        def is_active():
            found = self.windows(title)
            if len(found) < count:
                return False
            active = re.findall(r"0x[0-9a-f]+", self.say("xprop", "-root", "_NET_ACTIVE_WINDOW"))
            if active and int(active[0], 16) == int(found[-1], 16):
                return True
            self.say("xdotool", "windowactivate", found[-1])
            return False
        await_that(is_active, f"the window '{title}'")

    def press(self, *keys):
        self.say("xdotool", "key", "--delay", "60", *keys)

    def has_colour(self, colour):
        picture = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], env=self.environment, capture_output=True,
                                 check=True).stdout
        return any(picture[at:at + 3] == colour for at in range(0, len(picture), 3))


def follow_windows(folder):
    own = folder.parent / "app"
    own.mkdir()
    (own / "korvelf157.exe").symlink_to(APP / "korvelf157.exe")
    model_name = "Z:" + str(folder).replace("/", "\\")
    (own / "MISC.TXT").write_bytes(f"{model_name}\r\n\r\nFalse\r\n".encode())
    desktop = Desktop(folder)
    try:
        await_that(lambda: "window id" in desktop.say("xprop", "-root", "_NET_CLIENT_LIST"), "a window manager")
        desktop.start(str(APP / "korvel"), "--application-folder", str(own))
        version = subprocess.run([str(APP / "korvel"), "--version"], capture_output=True, text=True, check=True).stdout
        take_steps(desktop, folder, version.strip().upper())
    finally:
        desktop.end()


def take_steps(desktop, folder, title):
    def start_title():
        names = desktop.say("xdotool", "search", "--onlyvisible", "--name", title + " [.][.][.]").split()
        return names and desktop.say("xdotool", "getwindowname", names[-1]).strip()

    desktop.in_front(await_that(start_title, "the main form"))
    # RUN THE KORVEL MODEL, 0 BASIC RUN. R stands for two items in turn; after another letter it is the first one's.
    desktop.press("alt+o", "Escape", "Escape", "alt+r", "0")
    desktop.in_front("Open KORVEL data file ...")
    desktop.say("xdotool", "type", "--delay", "20", "ALDER.DAT")
    desktop.press("Return")
    desktop.in_front("KORVEL model run: Finished - ALDER.DAT, run type 0")
    desktop.press("alt+c")
    # Graphs: upstream reach 3, downstream the last, Flow and BOD.
    desktop.in_front("KORVEL")
    desktop.press("alt+g")
    desktop.in_front("Korvel Graphical Results")
    desktop.press("Down", "Down", "Down", "Tab", "End", "Tab", "Home", "space", "ctrl+Down", "ctrl+Down", "ctrl+space")
    desktop.press("alt+p")
    desktop.in_front("Korvel Graphical Results", 2)
    await_that(lambda: desktop.has_colour(b"\x00\x00\xff"), "the blue line of the means")
    desktop.press("alt+e")
    desktop.in_front("Korvel Graphical Results")
    desktop.press("alt+e")
    # Reports, Spreadsheet file.
    desktop.in_front("KORVEL")
    desktop.press("alt+o", "Escape", "Escape", "alt+r", "Escape", "alt+r", "Return")
    desktop.in_front("Korvel Reports")
    desktop.press("alt+s")
    await_that((folder / "ALDER.csv").is_file, "the spreadsheet file")
    check_spreadsheet(folder / "ALDER.csv")


def main():
    begun = time.monotonic()
    try:
        with tempfile.TemporaryDirectory() as name:
            follow_commands(clean_folder(name))
        print(f"by commands: {time.monotonic() - begun:.1f} s")
        if any(shutil.which(tool) is None for tool in TOOLS):
            print("Skipped: the windows, for lack of a screen's tools")
            return SKIPPED
        begun = time.monotonic()
        with tempfile.TemporaryDirectory() as name:
            follow_windows(clean_folder(name))
        print(f"in the windows: {time.monotonic() - begun:.1f} s")
    except Failed as failure:
        print(failure)
        return 1
    return 0


sys.exit(main())
