"""Walks through the windows of our own, their dialogs, tables and menus, also with letters of twice the size.

access_own_test.py BUILD SAMPLES [TEST...]      see access_walk.py
"""

import os
import pathlib
import subprocess

import access_walk
from access_walk import OWN, READER, RECORD, SAYS_NOTHING, WORK, WalkTest
from guided_steps import Walk, plain
from screen_reader import keys

OF_QT = ("Files", "Sidebar")  # of the file dialog: lists whose focus shows once a line is chosen
TABLES = ("Values", "Changes", "Compliance", "Fit", "Sources")
PAINTED = ("Network of rivers", "Profile along the river")


class OwnWindowsTest(WalkTest):
    def setUp(self):
        super().setUp()
        os.environ.pop("QT_FONT_DPI", None)
        self.walk = Walk(READER, pathlib.Path(WORK), seen=lambda step: None)

    def explorer(self, *files):
        program = self.start("explore", *files)
        frame = self.other(program, [], "the Explorer")
        READER.wait(lambda: READER.focused(frame), "the Explorer's focus")
        return program, frame

    def from_menu(self, program, frame, button, item):
        """The window that an item of a button's menu opens."""
        self.walk.press(button)
        self.walk.press(item)
        window = self.other(program, [frame], item)
        READER.wait(lambda: READER.focused(window), f"the focus behind {item}")
        return window

    def back_to(self, program, frame):
        keys("Escape")
        READER.wait(lambda: READER.frames(program) == [frame] and READER.focused(frame), "the way back")

    def read_menu(self, title):
        menu = READER.wait(READER.open_menu, title)
        items = [thing for thing in READER.children(menu) if thing.get_role_name() != "separator"]
        lines = [READER.spoken(item) for item in items]
        RECORD.append(f"{title}\n" + "".join(f"    {line}\n" for line in lines))
        self.assertGreater(len(lines), 0, title)
        for item in items:
            self.assertTrue(plain(item.get_name()), f"{title}: {lines}")
            self.assertIn("menu item", item.get_role_name(), title)
        keys("Escape")
        return lines

    def listing(self):
        program, frame = self.main_form()
        reports = self.open_reports(program, frame)
        keys("alt+v")
        self.walk.press("Select and view file")
        self.file_dialog(program, [frame, reports], "ALDER.OUT")
        viewer = READER.window("ALDER.OUT", program)
        READER.wait(lambda: READER.focused(viewer), "the viewer's focus")
        return viewer

    def test_listing_viewer(self):
        viewer = self.listing()
        read = self.check(viewer, "Viewer of listings")
        self.read(read, "Find, text, empty", "Next, push button", "Previous, push button", "Print, push button",
                  "Close, push button", "Listing, text, ")
        keys("ctrl+f")
        subprocess.run(["xdotool", "type", "no such words"], check=True)
        keys("Return")
        self.walk.read("Not found.")

    def test_explorer_and_its_preview(self):
        program, frame = self.explorer("ALDER.SGR", "ALDER2.SGR")
        # The holder of the tables' tabs is no stop: its tab in front is.
        self.check(frame, "Explorer", may_miss=("Tables, filler",), quiet=("Values", *PAINTED))
        keys("ctrl+p")
        preview = self.other(program, [frame], "the preview")
        READER.wait(lambda: READER.focused(preview), "its focus")
        inside = ("(no name), filler",)  # the part of the preview that is painted on; its keys are the preview's
        self.check(preview, "Print preview", may_miss=inside, quiet=("Preview",))

    def test_empty_explorer(self):
        _, frame = self.explorer()
        read = self.check(frame, "Explorer, nothing opened")
        self.read(read, "Open results ..., push button")

    def test_tables_of_the_explorer(self):
        _, frame = self.explorer("ALDER.SGR", "ALDER2.SGR")
        for name in TABLES:
            tab = next(t for t in READER.all_of(frame) if t.get_role() == READER.role.PAGE_TAB and t.get_name() == name)
            self.walk.click(tab)
            table = READER.wait(lambda name=name: self.shown_table(frame, name), f"the table {name}")
            things = [t for t in READER.all_of(frame) if READER.is_(t, "SHOWING") and READER.is_(t, "FOCUSABLE")]
            corner = READER.place(table)
            beside = [t for t in things if READER.place(t).x >= corner.x and READER.place(t).y >= READER.place(tab).y and
                      t.get_role_name() not in {*SAYS_NOTHING, "label"}]
            lines = [READER.spoken(t) for t in beside]
            RECORD.append(f"Explorer's table {name}\n" + "".join(f"    {line}\n" for line in lines))
            self.assertFalse([line for line in lines if line.startswith("(no name)")], name)
            face = table.get_table_iface()
            self.assertGreater(face.get_n_rows(), 0, name)
            for column in range(face.get_n_columns()):
                self.assertTrue(face.get_column_description(column).strip(), f"{name}, column {column}")

    def shown_table(self, frame, name):
        return next((t for t in READER.all_of(frame) if t.get_role() == READER.role.TABLE and t.get_name() == name and
                     READER.is_(t, "SHOWING")), None)

    def test_dialogs_of_handing_on(self):
        program, frame = self.explorer("ALDER.SGR", "ALDER2.SGR")
        dialog = self.from_menu(program, frame, "Export", "Save picture ...")
        read = self.check(dialog, "Save picture")
        self.read(read, "Kind PNG, combo box", "Width, spin button, ", "Height, spin button, ", "Resolution, spin button, ")
        self.assertTrue(any("On paper" in line for line in read.lines), read.lines)
        self.back_to(program, frame)
        for item, title in (("Save table in front ...", "Save table Values"), ("Save page for browsers ...", "Save page"),
                            ("Save atlas ...", "Save atlas"), ("Save study as ...", "Save study")):
            dialog = self.from_menu(program, frame, "Export", item)
            self.assertTrue(dialog.get_name().startswith(title), dialog.get_name())
            read = self.check(dialog, f"{dialog.get_name()} (Qt's own)", quiet=OF_QT)
            self.read(read, "File name:, text, ")
            self.back_to(program, frame)

    def test_questions(self):
        program, frame = self.main_form()
        keys("alt+s")
        self.check_question(program, frame, "Question about the samples", "The sample catchment is made", "Yes", "No")
        self.tearDown()
        program, frame = self.explorer("ALDER.SGR")
        self.file_dialog_of("Save study as ...", program, frame, "asked")
        READER.wait(lambda: "asked" in frame.get_name(), "the study's name in the title")
        self.walk.press("Logarithmic scale")
        keys("alt+F4")
        self.check_question(program, frame, "Question about a changed study", "Do you wish to save the changes", "Save", "Discard",
                            "Cancel")
        self.assertTrue(READER.is_(frame, "SHOWING"))

    def file_dialog_of(self, item, program, frame, name):
        dialog = self.from_menu(program, frame, "Export", item)
        keys("ctrl+a")
        subprocess.run(["xdotool", "type", "--delay", "20", name], check=True)
        keys("Return")
        READER.wait(lambda: dialog not in READER.frames(program), "the dialog's end")

    def check_question(self, program, frame, title, words, *answers):
        question = self.other(program, [frame], title)
        READER.wait(lambda: READER.focused(question), f"the focus of {title}")
        read = self.check(question, title)
        told = [thing.get_name() for thing in READER.all_of(question) if thing.get_role() == READER.role.LABEL]
        self.assertTrue(any(words in text for text in told), told)
        self.assertEqual(sorted(line.split(",")[0] for line in read.lines), sorted(answers))
        self.back_to(program, frame)

    def test_menus(self):
        _, frame = self.explorer("ALDER.SGR", "ALDER2.SGR")
        self.walk.press("Export")
        lines = self.read_menu("Explorer's menu Export")
        self.assertTrue(any(line.startswith("Save atlas ...") for line in lines), lines)
        self.walk.press("Arrange")
        self.read_menu("Explorer's menu Arrange")
        for name in ("Runs", "Series"):
            thing = READER.wait(lambda name=name: next((t for t in READER.all_of(frame) if t.get_name() == name and
                                                        READER.is_(t, "FOCUSABLE")), None), name)
            self.walk.click(READER.children(thing)[1])  # no menu for the flow
            keys("Menu")
            self.read_menu(f"Explorer's menu of {name}")

    def test_letters_of_twice_the_size(self):
        """The desktop asks for them: everything that is said or can be pressed is on the screen as a whole."""
        os.environ["QT_FONT_DPI"] = "192"
        self.expect_on_screen(self.listing(), 1)  # a window of the given forms' program, which has its own measure
        self.tearDown()
        self.walk.scale = 2
        program, frame = self.explorer("ALDER.SGR")
        self.expect_on_screen(frame, 2)
        for shortcut in ("ctrl+p", "ctrl+o", "ctrl+shift+s"):
            keys(shortcut)
            dialog = self.other(program, [frame], shortcut)
            READER.wait(lambda dialog=dialog: READER.focused(dialog), shortcut)
            self.expect_on_screen(dialog, 2)
            self.back_to(program, frame)
        self.walk.press("More tools")
        self.walk.press("Export")
        self.walk.press("Save picture ...")
        self.expect_on_screen(self.other(program, [frame], "the picture's dialog"), 2)
        self.tearDown()
        _, frame = self.explorer()
        self.expect_on_screen(frame, 2)

    def expect_on_screen(self, frame, scale):
        """The bus tells places in pixels of the desktop's measure: that many of the screen's."""
        self.expect_inside(frame)
        place = READER.place(frame)
        self.assertGreaterEqual(min(place.x, place.y), 0, frame.get_name())
        self.assertLessEqual(scale * (place.x + place.width), 1366 + scale, frame.get_name())
        self.assertLessEqual(scale * (place.y + place.height), 768 + scale, frame.get_name())


if __name__ == "__main__":
    access_walk.main()
