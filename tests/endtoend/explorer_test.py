"""The Explorer as a user and a screen reader meet it: real keys and pointer, and what the accessibility bus tells.

explorer_test.py BUILD SAMPLES

Skipped (status 77) where a program or a package for it is missing.
"""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import warnings

import screen_reader

BUILD, SAMPLES = (pathlib.Path(name).resolve() for name in sys.argv[1:3])

if "\n  explore" not in subprocess.run([BUILD / "app" / "korvel", "--help"], capture_output=True, text=True).stdout:
    screen_reader.skip("this korvel has no Explorer")
screen_reader.demand_tools()

FOLDER = tempfile.TemporaryDirectory(prefix="korvel")
SCREEN = screen_reader.start_screen(FOLDER.name, "1920x1080")
from gi.repository import Atspi  # noqa: E402  (takes the bus from the environment)

warnings.simplefilter("ignore", DeprecationWarning)  # of the bus library
WAIT = 30  # seconds


def wait(condition, what):
    end = time.monotonic() + WAIT
    while time.monotonic() < end:
        try:
            found = condition()
        except gi.repository.GLib.Error:
            found = None  # the thing has gone meanwhile
        if found:
            return found
        time.sleep(0.1)
    raise AssertionError(f"waited in vain for {what}")


def all_of(thing, depth=0):
    yield thing
    if depth < 14 and thing.get_role() != Atspi.Role.TABLE:
        for index in range(thing.get_child_count()):
            child = thing.get_child_at_index(index)
            if child is not None:
                yield from all_of(child, depth + 1)


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "30", *names], check=True)
    time.sleep(0.15)


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "30", text], check=True)
    time.sleep(0.3)


class Explorer:
    def __init__(self, folder, files):
        self.program = subprocess.Popen([BUILD / "app" / "korvel", "explore", *files], cwd=folder)
        self.frame = wait(self.find_frame, "the Explorer's window")

    def find_frame(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is not None and application.get_process_id() == self.program.pid and application.get_child_count():
                return application.get_child_at_index(0)
        return None

    def find(self, role, name):
        for thing in all_of(self.frame):
            if thing.get_role() == role and thing.get_name() == name:
                return thing
        return None

    def thing(self, role, name):
        return wait(lambda: self.find(role, name), f"{role.value_nick} {name}")

    def focus(self, role, name):
        thing = self.thing(role, name)
        thing.get_component_iface().grab_focus()
        wait(lambda: thing.get_state_set().contains(Atspi.StateType.FOCUSED), f"the focus on {name}")
        return thing

    def open_tab(self, name):
        self.click(self.thing(Atspi.Role.PAGE_TAB, name))
        table = Table(self, name)
        wait(lambda: table.table.get_state_set().contains(Atspi.StateType.SHOWING), f"the table {name}")
        return table

    def click(self, thing, times=1):
        place = thing.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(place.x + place.width // 2), str(place.y + place.height // 2), "click",
                        "--repeat", str(times), "--delay", "60", "1"], check=True)
        time.sleep(0.3)

    def choose(self, before, word):
        """In the box of choices that shows the word before: opened by a click, found by typing."""
        if before == word:
            return
        self.click(self.thing(Atspi.Role.COMBO_BOX, before))
        type_text(word)
        keys("Return")
        self.thing(Atspi.Role.COMBO_BOX, word)

    def filter(self, words):
        self.focus(Atspi.Role.TEXT, "Filter")
        keys("ctrl+a", "Delete")
        if words:
            type_text(words)

    def close(self):
        self.program.terminate()
        self.program.wait(timeout=WAIT)


class Table:
    def __init__(self, explorer, name):
        self.explorer = explorer
        self.name = name
        self.table = explorer.thing(Atspi.Role.TABLE, name)
        self.face = self.table.get_table_iface()

    def count(self):
        return self.face.get_n_rows()

    def headings(self):
        return [self.face.get_column_description(column).replace("\n", " ") for column in range(self.face.get_n_columns())]

    def cell(self, row, heading):
        return self.face.get_accessible_at(row, self.headings().index(heading))

    def row(self, row):
        return {heading: self.face.get_accessible_at(row, column).get_name()
                for column, heading in enumerate(self.headings())}

    def rows(self):
        return [self.row(row) for row in range(self.count())]

    def sort(self, heading):
        """By keys: along the row to the column, and then the key for sorting."""
        self.explorer.click(self.face.get_accessible_at(0, 0))
        keys("ctrl+Home", "Home", *["Right"] * self.headings().index(heading), "F8")


def korvel(*arguments):
    answer = subprocess.run([BUILD / "app" / "korvel", *arguments, "--format", "json"], capture_output=True, text=True,
                            cwd=FOLDER.name, check=True, timeout=120)
    return json.loads(answer.stdout)


def near(shown, value):
    """Whether a rounded number is this one."""
    return abs(float(shown) - value) <= 0.0006 * abs(value) + 0.06 * (abs(value) >= 100)


def window_named(title):
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"], capture_output=True, text=True).stdout


def run_samples():
    if not os.path.exists(os.path.join(FOLDER.name, "ALDER2.SGR")):
        for name in ("ALDER", "ALDER2"):
            shutil.copy(SAMPLES / f"{name}.DAT", FOLDER.name)
            subprocess.run([BUILD / "app" / "korvel", "run", f"{name}.DAT", "--wait"], cwd=FOLDER.name, check=True,
                           capture_output=True, timeout=120, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})


class ExplorerTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        run_samples()

    def setUp(self):
        self.explorer = Explorer(FOLDER.name, ["ALDER.SGR", "ALDER2.SGR"])
        self.values()
        time.sleep(1)  # until all has its place

    def tearDown(self):
        self.explorer.close()

    def values(self):
        table = Table(self.explorer, "Values")
        wait(lambda: table.count() > 0, "values")
        return table

    def test_tables_have_names_headings_and_cells(self):
        self.assertEqual(self.values().headings()[:7],
                         ["Reach", "Name", "Along path", "Distance", "Feature", "Side", "Type"])
        for name in ("Changes", "Compliance", "Fit", "Sources"):
            table = self.explorer.open_tab(name)
            self.assertGreater(table.count(), 0, name)
            self.assertNotIn("", table.headings(), name)

    def test_a_click_on_a_heading_sorts_and_the_third_is_file_order(self):
        table = self.values()
        along = [row["Along path"] for row in table.rows()[:5]]
        heading = wait(lambda: self.explorer_header(table, "Feature"), "the heading")
        first = [table.row(0)["Feature"]]
        for _ in range(2):
            self.explorer.click(heading)
            time.sleep(0.7)  # no double click
            first.append(table.row(0)["Feature"])
        self.assertEqual(len(set(first[1:])), 2, first)
        self.assertLess(first[1].lower(), first[2].lower())
        self.explorer.click(heading)
        self.assertEqual([row["Along path"] for row in table.rows()[:5]], along)

    @staticmethod
    def explorer_header(table, name):
        column = table.headings().index(name)
        header = table.face.get_column_header(column)
        return header

    def test_what_is_copied_can_be_pasted(self):
        table = self.values()
        self.explorer.click(table.cell(0, "Name"))
        keys("ctrl+c")
        filter_box = self.explorer.focus(Atspi.Role.TEXT, "Filter")
        keys("ctrl+a", "ctrl+v")
        pasted = wait(lambda: filter_box.get_text_iface().get_text(0, -1), "a pasted text")
        self.assertEqual(pasted.split(), ["Name", "High", "Alder"])

    def test_a_row_moves_the_cursor_and_the_readout_tells_it(self):
        table = self.values()
        self.explorer.filter("Holcombe")
        wait(lambda: table.count() == 2, "the rows of Holcombe")
        self.explorer.click(table.cell(1, "Feature"))
        wait(self.readout_of("Holcombe STW"), "the readout")

    def readout_of(self, words):
        return lambda: any(words in thing.get_name() for thing in all_of(self.explorer.frame)
                           if thing.get_role() == Atspi.Role.LABEL)

    def test_where_bod_first_fails_below_holcombe_and_by_how_much(self):
        points = korvel("compliance", "ALDER.SGR", "--determinands", "BOD", "--by", "point")["runs"][0]["points"]
        statistic = points[0]["statistic"]
        failing = {(str(p["reach"]), p["distance"], p["side"]): p for p in points if p["verdict"] == "fail"}
        self.explorer.choose("mean", statistic)
        table = self.values()
        column = wait(lambda: next((h for h in table.headings() if h == "BOD (Conc) ALDER.SGR"), None), "BOD")
        rows = table.rows()
        below = next(k for k, row in enumerate(rows) if row["Feature"].startswith("Holcombe") and row["Side"] == "D/S")
        for k in range(below, len(rows)):
            told = table.cell(k, column).get_description()
            if "target" not in told:
                continue
            value, target = (float(told.split(words)[1].split()[0].rstrip(",")) for words in ("ALDER.SGR: ", "target "))
            if value > target:
                break
        else:
            self.fail("nothing fails")
        expected = failing[(rows[k]["Reach"], float(rows[k]["Distance"]), rows[k]["Side"])]
        self.assertTrue(near(value / target, expected["ratio"]))
        for earlier in rows[below:k]:
            self.assertNotIn((earlier["Reach"], float(earlier["Distance"]), earlier["Side"]), failing)

    def test_which_works_matters_most_for_phosphate_at_the_mouth(self):
        answer = korvel("sources", "ALDER.SGR", "ALDER2.SGR", "--determinand", "Phosphate")
        table = self.explorer.open_tab("Sources")
        self.explorer.choose("Chloride", "Phosphate")
        wait(lambda: "Share % ALDER2.SGR" in table.headings() and table.count() > 0, "sources")
        rows = [row for row in table.rows() if row["Kind"] == "sewage works"]
        for run in answer["runs"]:
            most = max((s for s in run["sources"] if s["kind"] == "sewage works"), key=lambda s: s["arrives"])
            shown = max(rows, key=lambda row: float(row[f"Arrives {run['run']}"] or 0))
            self.assertEqual(shown["Name"], most["name"])
            self.assertTrue(near(shown[f"Arrives {run['run']}"], most["arrives"]))

    def test_where_the_scheme_makes_things_worse_beyond_the_limits(self):
        table = self.explorer.open_tab("Changes")
        rows = korvel("changes", "ALDER.SGR", "ALDER2.SGR")["runs"][0]["reaches"]
        shown_series = {row["Series"] for row in table.rows()}
        worse = [row for row in rows if row["series"] in shown_series and row["clear_rises"] > 0]
        table.sort("Clear rises")
        most = sorted((row["clear_rises"] for row in rows if row["series"] in shown_series), reverse=True)
        wait(lambda: [int(row["Clear rises"]) for row in table.rows()] == most, "the order")
        told = [(row["Reach"], row["Series"], row["Clear rises"]) for row in table.rows() if row["Clear rises"] != "0"]
        self.assertEqual(sorted(told), sorted((str(r["reach"]), r["series"], str(r["clear_rises"])) for r in worse))
        self.assertTrue(told)

    def test_how_well_the_model_fits_on_the_rowan(self):
        rivers = korvel("fit", "ALDER.SGR", "--by", "river")["runs"][0]["rivers"]
        table = self.explorer.open_tab("Fit")
        self.explorer.choose("Whole file", "Rivers")
        self.explorer.filter("Rowan")
        wait(lambda: "River" in table.headings() and table.count() > 0 and "Rowan" in table.row(0)["River"], "the Rowan")
        rows = [row for row in table.rows() if row["Run"] == "ALDER.SGR"]
        self.assertTrue(rows)
        for row in rows:
            fit = next(f for f in rivers if (f["river"], f["series"], f["statistic"]) ==
                       (row["River"], row["Series"], row["Statistic"]))
            self.assertEqual(int(row["n"]), fit["n"])
            self.assertTrue(near(row["RMSE"], fit["rmse"]), row)


def drag(start, *path):
    """With the left button, slowly enough for what is dragged over to be told."""
    subprocess.run(["xdotool", "mousemove", *map(str, start), "mousedown", "1"], check=True)
    for place in path:
        time.sleep(0.3)
        subprocess.run(["xdotool", "mousemove", *map(str, place)], check=True)
    time.sleep(0.5)
    subprocess.run(["xdotool", "mouseup", "1"], check=True)


class WaysInTest(unittest.TestCase):
    """Opened by the dialog, by what is dropped, and put into another order by dragging."""

    @classmethod
    def setUpClass(cls):
        run_samples()

    def open(self, *files):
        self.explorer = Explorer(FOLDER.name, files)
        self.addCleanup(self.explorer.close)

    def runs(self):
        return [line.get_name() for line in self.run_lines()]

    def run_lines(self):
        runs = self.explorer.find(Atspi.Role.LIST, "Runs")
        return [runs.get_child_at_index(k) for k in range(runs.get_child_count())] if runs else []

    def wait_for_runs(self, *names):
        wait(lambda: self.runs() == list(names), f"{names}, there are {self.runs()}")

    def middle_of(self, thing):
        place = thing.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return place.x + place.width // 2, place.y + place.height // 2

    def test_an_empty_window_says_what_to_do_and_opens_several_files_at_once(self):
        self.open()
        self.explorer.thing(Atspi.Role.LABEL, "Look down any river")
        self.explorer.focus(Atspi.Role.PUSH_BUTTON, "Open results ...")
        keys("Return")
        wait(lambda: window_named("Open results"), "the dialog")
        type_text('"ALDER.SGR" "ALDER2.SGR"')
        keys("Return")
        self.wait_for_runs("ALDER.SGR  (base)", "ALDER2.SGR")
        self.explorer.close()
        self.open()
        recent = self.explorer.thing(Atspi.Role.LIST, "Opened lately")
        self.assertTrue(recent.get_child_at_index(0).get_name().startswith("ALDER2.SGR"))
        self.explorer.click(recent.get_child_at_index(0), times=2)
        self.wait_for_runs("ALDER2.SGR  (base)")

    def test_files_that_are_dropped_are_opened_and_stay_where_they_are(self):
        self.open("ALDER.SGR")
        self.wait_for_runs("ALDER.SGR  (base)")
        source = subprocess.Popen([BUILD / "bin" / "drag_source", "ALDER2.SGR"], cwd=FOLDER.name)
        self.addCleanup(source.wait)
        self.addCleanup(source.terminate)
        wait(lambda: window_named("Drag source"), "what is dragged from")
        time.sleep(0.5)
        drag((30, 30), (45, 45), (400, 300), (900, 500), (905, 505))
        self.wait_for_runs("ALDER.SGR  (base)", "ALDER2.SGR")
        self.assertTrue(os.path.exists(os.path.join(FOLDER.name, "ALDER2.SGR")))

    def test_of_thirteen_files_that_are_dropped_twelve_are_opened_and_the_other_is_named(self):
        names = [f"RUN{k:02}.SGR" for k in range(1, 14)]
        for name in names:
            shutil.copy(os.path.join(FOLDER.name, "ALDER.SGR"), os.path.join(FOLDER.name, name))
        self.open()
        self.explorer.thing(Atspi.Role.LABEL, "Look down any river")
        source = subprocess.Popen([BUILD / "bin" / "drag_source", *names], cwd=FOLDER.name)
        self.addCleanup(source.wait)
        self.addCleanup(source.terminate)
        wait(lambda: window_named("Drag source"), "what is dragged from")
        time.sleep(0.5)
        drag((30, 30), (45, 45), (400, 300), (900, 500), (905, 505))
        wait(lambda: window_named("Open results"), "the message")
        words = wait(lambda: self.message_words(), "its words")
        self.assertEqual(words, "RUN13.SGR: there are 12 runs already, as many as there can be.")
        keys("Return")
        wait(lambda: not window_named("Open results"), "the message's end")
        self.wait_for_runs("RUN01.SGR  (base)", *names[1:12])

    def message_words(self):
        application = self.explorer.frame.get_application()
        for index in range(application.get_child_count()):
            window = application.get_child_at_index(index)
            for thing in all_of(window) if window is not None and window.get_name() == "Open results" else ():
                if thing.get_role() == Atspi.Role.LABEL and ".SGR" in thing.get_name():
                    return thing.get_name()
        return None

    def test_the_pointer_moves_about(self):
        self.open("ALDER.SGR")
        self.wait_for_runs("ALDER.SGR  (base)")
        profile = self.explorer.thing(Atspi.Role.CHART, "Profile along the river").get_component_iface()
        place = profile.get_extents(Atspi.CoordType.SCREEN)
        at, y = place.x + place.width // 3, place.y + place.height // 3
        whole = self.km_at(at, y)
        step = 0.1 * place.width
        for _ in range(4):
            subprocess.run(["xdotool", "click", "4"], check=True)
        self.assertLess(abs(self.km_at(at, y) - whole), 0.6, "the wheel zooms about the pointer")
        near = self.km_at(at + step, y) - self.km_at(at, y)
        subprocess.run(["xdotool", "keydown", "shift", "click", "5", "click", "5", "keyup", "shift"], check=True)
        scrolled = self.km_at(at, y)
        self.assertGreater(scrolled, whole + 1, "with Shift it scrolls")
        drag((at, y), (at - 100, y), (at - 200, y))
        dragged = self.km_at(at, y)
        self.assertGreater(dragged, scrolled + 1, "dragging moves what is seen")
        subprocess.run(["xdotool", "keydown", "shift"], check=True)
        drag((at, y), (at + 100, y), (at + 200, y))
        subprocess.run(["xdotool", "keyup", "shift"], check=True)
        self.assertLess(self.km_at(at + step, y) - self.km_at(at, y), near / 2, "Shift and dragging zooms to a box")
        keys("alt+Left")
        self.assertEqual(self.km_at(at, y), dragged, "back to what was seen before")
        subprocess.run(["xdotool", "click", "--repeat", "2", "--delay", "60", "1"], check=True)
        self.assertEqual(self.km_at(at, y), whole, "a double click shows all")
        subprocess.run(["xdotool", "click", "1"], check=True)
        self.assertEqual(self.km_at(at + 3 * step, y), whole, "a click holds the cursor")
        keys("Escape")
        self.assertGreater(self.km_at(at + 2 * step, y), whole + 1, "Esc lets it go")

    def km_at(self, x, y):
        """What the line at the bottom tells of this place, once it has settled."""
        for each in (int(x) + 1, int(x)):
            subprocess.run(["xdotool", "mousemove", str(each), str(int(y))], check=True)
            time.sleep(0.25)
        told = [None, self.readout()]
        while told[-1] is None or told[-1] != told[-2]:
            time.sleep(0.25)
            told.append(self.readout())
            self.assertLess(len(told), 40, "the readout settles")
        return float(told[-1].split(" km")[0])

    def readout(self):
        return next((thing.get_name() for thing in all_of(self.explorer.frame)
                     if thing.get_role() == Atspi.Role.LABEL and " km \u00b7 " in thing.get_name()), None)

    def test_runs_are_dragged_into_another_order(self):
        self.open("ALDER.SGR", "ALDER2.SGR")
        self.wait_for_runs("ALDER.SGR  (base)", "ALDER2.SGR")
        first, second = (self.middle_of(line) for line in self.run_lines())
        drag(second, (second[0], second[1] - 6), (first[0], first[1] - 4), (first[0], first[1] - 6))
        self.wait_for_runs("ALDER2.SGR  (base)", "ALDER.SGR")


def main():
    result = unittest.main(argv=[sys.argv[0], "-v", *sys.argv[3:]], exit=False).result
    for program in SCREEN:
        program.terminate()
    for program in SCREEN:
        program.wait()
    sys.exit(0 if result.wasSuccessful() else 1)


if __name__ == "__main__":
    main()
