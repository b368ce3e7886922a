"""A walk through a window by Tab, as one does who can't see the screen, and a record of what a screen reader is told. At each stop:
a name, a role that says what it is, the focus to be seen by those who do see; no stop twice, none missed.

For tests that are called as TEST BUILD SAMPLES [TEST...]; with KORVEL_RECORD=FILE the record is written there. Skipped (status 77)
where a program or a package for it is missing.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

import screen_reader
from screen_reader import cut, end, keys, picture

BUILD, SAMPLES = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
KORVEL = BUILD / "app" / "korvel"
HOME = tempfile.TemporaryDirectory(prefix="korvel")
SCREEN = screen_reader.start_screen(HOME.name)
READER = screen_reader.Reader()
WORK, OWN = screen_reader.prepared_folder(SAMPLES, BUILD / "app")(HOME.name)
RECORD = []
MOST_STOPS = 60
SAYS_NOTHING = {"filler", "panel", "unknown", "frame", "invalid", "viewport", "redundant object"}


class Window:
    """One window, and what is read in it stop by stop."""

    def __init__(self, frame, title):
        self.frame, self.title = frame, title
        self.things, self.lines, self.unseen = [], [], []
        self.is_round = False

    def walk(self):
        shot, last = None, None
        while len(self.things) < MOST_STOPS:
            stop = self.next_stop(last)
            if stop is None:
                break
            shot = picture() if shot is None else self.compare(shot, last, stop)
            if stop in self.things:
                self.is_round = stop == self.things[0]
                break
            self.things.append(stop)
            self.lines.append(READER.spoken(stop))
            last = stop
            keys("Tab")
        RECORD.append(f"{self.title}\n" + "".join(f"    {line}\n" for line in self.lines))
        return self

    def next_stop(self, last):
        """Once the focus has moved on; the machine may be slow. None where it stays."""
        patience = time.monotonic() + (3 if last is not None else screen_reader.PATIENCE)
        while time.monotonic() < patience:
            try:
                stop = READER.focused(self.frame)
            except READER.gone:
                stop = None
            if stop is not None and stop != last:
                return stop
            time.sleep(0.05)
        return None

    def compare(self, before, left, reached):
        """The focus shows where it has been and where it is, once it has been painted; at first not before a key for moving it
        was used. Returns the picture."""
        ways = [(reached, "is reached")] if len(self.things) == 1 else [(left, "is left"), (reached, "is reached")]
        places = [(READER.place(thing), thing, what) for thing, what in ways]
        patience = time.monotonic() + 2
        while True:
            after = picture()
            unchanged = [(thing, what) for place, thing, what in places if cut(before, place) == cut(after, place)]
            if not unchanged or time.monotonic() > patience:
                break
            time.sleep(0.05)
        self.unseen += [f"{READER.spoken(thing)}: nothing changes when it {what}" for thing, what in unchanged]
        return after

    def missed(self):
        """What can take the focus and was not met. A line, a cell or one of several options is reached by arrows."""
        inner = {"list item", "table cell", "tree item", "table column header", "table row header", "menu item", "check menu item",
                 "label", "page tab", "page tab list"}
        for thing in READER.all_of(self.frame):
            states = [READER.is_(thing, state) for state in ("FOCUSABLE", "SHOWING", "SENSITIVE")]
            option = thing.get_role() == READER.role.RADIO_BUTTON and not READER.is_(thing, "CHECKED")
            if all(states) and not option and thing.get_role_name() not in inner and thing not in self.things:
                yield READER.spoken(thing)


class WalkTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        for name in ("ALDER", "ALDER2"):
            subprocess.run([KORVEL, "--application-folder", OWN, "run", f"{name}.DAT", "--wait"], cwd=WORK, check=True,
                           capture_output=True, timeout=120, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})

    def setUp(self):
        self.programs = []

    def tearDown(self):
        end(self.programs)
        screen_reader.end_windows(READER)

    def start(self, *arguments):
        self.programs.append(subprocess.Popen([KORVEL, "--application-folder", OWN, *arguments], cwd=WORK))
        return self.programs[-1].pid

    def check(self, frame, title, may_miss=(), quiet=(), holders=()):
        """May miss: what only a pointer reaches, with another way for keys. Quiet: whose focus is told otherwise. Holders: what
        Qt makes a stop of its own though it only holds others."""
        window = Window(frame, title).walk()
        self.assertTrue(window.is_round or len(window.things) == 1, f"{title}: {window.lines}")
        for thing, line in zip(window.things, window.lines):
            self.assertNotIn("(no name)", line, title)
            if thing.get_name() not in holders:
                self.assertNotIn(thing.get_role_name(), SAYS_NOTHING, line)
        missed = [line for line in window.missed() if not line.startswith(tuple(may_miss) or "\0")]
        self.assertEqual(missed, [], title)
        unseen = [line for line in window.unseen if not line.startswith(tuple(quiet) or "\0")]
        self.assertEqual(unseen, [], title)
        return window

    def read(self, window, *beginnings):
        """These lines, in this order."""
        rest = iter(window.lines)
        for beginning in beginnings:
            self.assertTrue(any(line.startswith(beginning) for line in rest), f"{beginning} in {window.lines}")

    def other(self, program, known, what):
        """A window that has come besides those known."""
        return READER.wait(lambda: next((f for f in READER.frames(program) if f not in known), None), what)

    def main_form(self):
        program = self.start()
        frame = READER.window("KORVEL", program)
        READER.wait(lambda: any(t.get_name() == "Last runs" for t in READER.all_of(frame)), "the start page")
        return program, frame

    def file_dialog(self, program, known, name):
        dialog = self.other(program, known, "a file dialog")
        READER.wait(lambda: READER.focused(dialog), "the file dialog's focus")
        subprocess.run(["xdotool", "type", "--delay", "20", name], check=True)
        keys("Return")

    def open_reports(self, program, frame):
        keys("alt+o", "Escape", "Escape", "alt+r", "Escape", "alt+r", "Return")
        reports = self.other(program, [frame], "the report form")
        READER.wait(lambda: READER.focused(reports), "the report form's focus")
        return reports

    def expect_inside(self, frame):
        """Whatever shows words or can be pressed lies in the window as a whole."""
        room = READER.place(frame)
        for thing in READER.all_of(frame):
            if thing.get_role() in (READER.role.LABEL, READER.role.PUSH_BUTTON) and READER.is_(thing, "SHOWING"):
                place = READER.place(thing)
                self.assertLessEqual(place.x + place.width, room.x + room.width, thing.get_name())
                self.assertLessEqual(place.y + place.height, room.y + room.height, thing.get_name())


def main():
    result = unittest.main(argv=[sys.argv[0], "-v", *sys.argv[3:]], exit=False, warnings="ignore").result
    end(SCREEN)
    print("\nWhat was read\n\n" + "\n".join(RECORD))
    if os.environ.get("KORVEL_RECORD"):
        pathlib.Path(os.environ["KORVEL_RECORD"]).write_text("\n".join(RECORD), encoding="utf-8")
    sys.exit(0 if result.wasSuccessful() else 1)
